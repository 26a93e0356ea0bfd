// The view and the layers of placed objects on a real catalog: the view
// chosen on binding, set, cleared and refused; layers named by var name and
// shown by the object's values.
#include <algorithm>
#include <string>
#include <vector>

#include "ObjectFixture.h"

namespace lxtest {
namespace {

using ObjectViews = ObjectFixture;

LxProjection* ProjectionOf(LxStdSize* size, const wchar_t* name) {
  LxProjections* list = stdsize_GetProjections(size);
  for (std::int32_t i = 0; i < projections_GetProjectioCount(list); ++i) {
    LxProjection* projection = projections_GetProjection(list, i);
    if (std::wstring(projection_GetName(projection)) == name) return projection;
  }
  return nullptr;
}

TEST_F(ObjectViews, TheViewIsCheckedOnBindingAndOnlyTheSizesProjectionsAreTaken) {
  // "сверху" where the size has it, else its first projection.
  LxObject* object = Create(s1_);
  EXPECT_EQ(object_GetProjection(object), ProjectionOf(s1_, L"сверху"));
  EXPECT_EQ(object_GetProjectionType(object), 1);
  LxObject* other = Create(u1_);
  EXPECT_EQ(object_GetProjection(other), ProjectionOf(u1_, L"слева"));
  EXPECT_EQ(object_GetProjectionType(other), 4);
  EXPECT_EQ(object_GetProjectionViewType(other), 2u);

  EXPECT_TRUE(object_SetProjection(object, ProjectionOf(s1_, L"спереди")));
  EXPECT_EQ(object_GetProjectionType(object), 2);
  EXPECT_EQ(object_GetProjectionViewType(object), 1u);
  EXPECT_FAILS(object_SetProjection(object, ProjectionOf(s2_, L"сверху")),
               "Можно использовать только проекции типоразмера объекта [CObject::_SetProjection]");
  EXPECT_FAILS(object_SetProjection(object, ProjectionOf(u1_, L"слева")),
               "Можно использовать только проекции типоразмера объекта [CObject::_SetProjection]");
  EXPECT_EQ(object_GetProjection(object), ProjectionOf(s1_, L"спереди"));

  // A changed size keeps own values and a view it lacks, and nothing repairs it.
  ASSERT_TRUE(object_SetValueD(object, Column(L"Масса"), 3.0));
  EXPECT_TRUE(object_ChangeStdSize(object, u1_));
  EXPECT_EQ(Seen(object, L"Масса"), L"d:3");
  EXPECT_EQ(Captured([&] { return object_GetProjection(object); }), Quietly<LxProjection*>(nullptr));
  EXPECT_EQ(object_GetProjectionType(object), 2);

  EXPECT_TRUE(object_SetProjection(other, nullptr));
  EXPECT_FAILS(object_GetProjection(other), "Оба параметра не могут быть пропущены [CStdProjs::_FindProjection]");
  EXPECT_EQ(object_GetProjectionType(other), 0);
  EXPECT_EQ(object_GetProjectionViewType(other), 0xFFFFFFFFu);
  // Binding anew finds no view to keep and takes the first projection.
  EXPECT_TRUE(object_Initialize(other, L"Lib", s1_, true));
  EXPECT_EQ(object_GetProjection(other), ProjectionOf(s1_, L"сверху"));

  // A loaded view is taken as it stands.
  LxObject* loaded = Load(ObjectContent{kPacket, L"S1", L"Lib", {}, 0.0, L"Свой вид", 2}.Written(20190222).bytes());
  EXPECT_EQ(object_GetProjectionType(loaded), 7);
  EXPECT_EQ(object_GetProjectionViewType(loaded), 2u);
  EXPECT_EQ(Captured([&] { return object_GetProjection(loaded); }), Quietly<LxProjection*>(nullptr));
}

TEST_F(ObjectViews, LayersFollowTheVarNamesAndTheObjectsValues) {
  LxObject* object = Create(s1_);
  LxLayers* layers = object_GetLayers(object);
  ASSERT_NE(layers, nullptr);
  ASSERT_EQ(layers_GetCount(layers), 4);
  std::vector<std::int32_t> numbers;
  std::vector<std::wstring> unnumbered;
  for (std::int32_t i = 0; i < 4; ++i) {
    numbers.push_back(layer_GetNumber(layers_GetLayer(layers, i)));
    if (numbers.back() == 0) unnumbered.push_back(layer_GetName(layers_GetLayer(layers, i)));
  }
  std::sort(unnumbered.begin(), unnumbered.end());
  EXPECT_EQ(numbers, (std::vector<std::int32_t>{0, 0, 2, 10}));
  EXPECT_EQ(unnumbered, (std::vector<std::wstring>{L"LAYER", L"LAYERx"}));
  EXPECT_FAILS(layers_GetLayer(layers, 4), "Индекс 4 выходит за пределы диапазона [0, 4) [CLayers::_GetLayer]");
  EXPECT_FAILS(layers_GetLayer(layers, -1), "Индекс -1 выходит за пределы диапазона [0, 4) [CLayers::_GetLayer]");
  EXPECT_EQ(object_GetLayers(object), layers);
  LxLayer* two = layers_GetLayer(layers, 2);
  LxLayer* ten = layers_GetLayer(layers, 3);
  EXPECT_STREQ(layer_GetName(two), L"LAYER2");
  EXPECT_STREQ(layer_GetName(ten), L"LAYER10");

  // Visible when the value is anything but zero, a text only as a whole number.
  EXPECT_FALSE(layer_GetVisible(two));
  const std::vector<std::pair<double, bool>> numbersShown{{0.5, true}, {0.0, false}, {-2.0, true}};
  for (const auto& [value, shown] : numbersShown) {
    ASSERT_TRUE(object_SetValueD(object, Column(L"Слой2"), value));
    EXPECT_EQ(layer_GetVisible(two), shown) << value;
  }
  const std::vector<std::pair<const wchar_t*, bool>> textsShown{
      {L"1", true}, {L"да", false}, {L"0", false}, {L"12", true}, {L"1,5", false}};
  for (const auto& [text, shown] : textsShown) {
    ASSERT_TRUE(object_SetValueS(object, Column(L"Слой10"), text));
    EXPECT_EQ(layer_GetVisible(ten), shown) << text;
  }
  // A layer reads the values of its own object.
  EXPECT_FALSE(layer_GetVisible(layers_GetLayer(object_GetLayers(Create(s1_)), 3)));
  EXPECT_FAILS(layer_SetVisible(ten), " (fun: layer_SetVisible) Неизвестное исключение");
}

}  // namespace
}  // namespace lxtest
