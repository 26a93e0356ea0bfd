// Models and projections of a generation, read back in SQL, decompressed by
// liblzo2 itself, and through the library: how many rows, how templates and
// projections share them, and that the blobs hold the content in its stored
// form.
#include <gtest/gtest.h>
#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>

#include <filesystem>

#include "GeneratedCatalogFixture.h"
#include "tools/CatalogGenerator/SyntheticContent.h"

namespace {

// 2 packets of 10 templates, 2 sizes each; 4 models over the 20 templates;
// 8 projections per template (directions 1..6 in view type 0, then 1 and 2
// in view type 1) over 25 fragments. A model's stored form needs two blob
// segments.
CatalogShape ContentShape() {
  CatalogShape shape;
  shape.seed = 5;
  shape.packets = 2;
  shape.templatesPerFolder = 10;
  shape.sizesPerTemplate = 2;
  shape.attributes = 1;
  shape.modelBytes = 40000;
  shape.distinctModels = 4;
  shape.projectionsPerTemplate = 8;
  shape.fragmentBytes = 3000;
  shape.distinctFragments = 25;
  shape.thumbnailBytes = 500;
  return shape;
}

// The stored form as any LZO1Y reader takes it: the length, little-endian,
// then the stream.
std::vector<unsigned char> Unpacked(const std::vector<unsigned char>& stored) {
  if (stored.size() < 4) return {};
  const std::uint32_t length = stored[0] | stored[1] << 8 | stored[2] << 16 | static_cast<std::uint32_t>(stored[3]) << 24;
  std::vector<unsigned char> content(length);
  lzo_uint produced = length;
  EXPECT_EQ(lzo_init(), LZO_E_OK);
  EXPECT_EQ(lzo1y_decompress_safe(stored.data() + 4, stored.size() - 4, content.data(), &produced, nullptr), LZO_E_OK);
  EXPECT_EQ(produced, length);
  return content;
}

class ContentGeneration : public lxtest::GeneratedCatalogFixture {};

TEST_F(ContentGeneration, TemplatesAndProjectionsShareTheDistinctContentInTurn) {
  const CatalogCounts written = Generate(ContentShape());
  EXPECT_EQ(written.models, 4);
  EXPECT_EQ(written.fragments, 25);
  EXPECT_EQ(written.projections, 160);
  EXPECT_EQ(Count(L"MODEL"), 4);
  EXPECT_EQ(Count(L"FRAGMENT"), 25);
  EXPECT_EQ(Count(L"OBJECTPROJECTION"), 160);

  // Every template has a model; each of the 4 serves 5 templates.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECT WHERE MODELID IS NULL"), 0);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT MODELID FROM OBJECT GROUP BY 1 HAVING COUNT(*) = 5)"), 4);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(DISTINCT DIGEST) FROM MODEL"), 4);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(DISTINCT DIGEST) FROM FRAGMENT"), 25);
  // 160 projections over 25 fragments: each used 6 or 7 times.
  const std::wstring uses = L"(SELECT COUNT(*) C FROM OBJECTPROJECTION GROUP BY FRAGMENTID)";
  EXPECT_EQ(Sql().Int(L"SELECT MIN(C) FROM " + uses), 6);
  EXPECT_EQ(Sql().Int(L"SELECT MAX(C) FROM " + uses), 7);
  // Standard directions and view types only, each pair once per template.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTPROJECTION WHERE PROJECTIONID NOT BETWEEN 1 AND 6 "
                      L"OR VIEW_TYPE NOT BETWEEN 0 AND 2"),
            0);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT OBJECTID FROM OBJECTPROJECTION GROUP BY 1 "
                      L"HAVING COUNT(DISTINCT PROJECTIONID * 10 + VIEW_TYPE) = 8)"),
            20);

  // The blobs hold the content, as liblzo2 reads it back.
  CDataProvider catalog(connection_.server, database_, connection_.user, connection_.password);
  lxtest::SqlScope scope(&catalog);
  const SyntheticContent content(ContentShape().seed);
  const std::int32_t firstModel = Sql().Int(L"SELECT MIN(ID) FROM MODEL");
  const std::wstring firstModelRow = L" FROM MODEL WHERE ID = " + std::to_wstring(firstModel);
  EXPECT_EQ(Unpacked(scope.Blob(L"SELECT MODEL" + firstModelRow)), content.Bytes(ContentKind::Model, 0, 40000));
  EXPECT_EQ(Sql().Texts(L"SELECT DIGEST" + firstModelRow),
            std::vector<std::wstring>{content.Digest(ContentKind::Model, 0, 40000)});
  EXPECT_EQ(Unpacked(scope.Blob(L"SELECT THUMBNAIL FROM FRAGMENT WHERE ID = (SELECT MAX(ID) FROM FRAGMENT)")),
            content.Bytes(ContentKind::FragmentThumbnail, 24, 500));

  // And the library finds them from a size of the generated table.
  ASSERT_TRUE(Reload());
  LxFolderTable* table = folder_GetTable(packet_GetRootFolder(provider_GetPacket(provider_, 0)));
  ASSERT_NE(table, nullptr);
  LxStdSize* size = table_GetStdSize(table, 0);
  const wchar_t* modelFile = model_GetModelFile(stdsize_GetModel(size));
  ASSERT_NE(modelFile, nullptr);
  EXPECT_EQ(std::filesystem::file_size(lxtest::Path(modelFile)), 40000u);
  LxProjections* projections = stdsize_GetProjections(size);
  ASSERT_EQ(projections_GetProjectioCount(projections), 8);
  unsigned char* icon = nullptr;
  std::int32_t iconSize = 0;
  EXPECT_TRUE(projection_GetIconData(projections_GetProjection(projections, 7), &icon, &iconSize));
  EXPECT_EQ(iconSize, 500);
}

}  // namespace
