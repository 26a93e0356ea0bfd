// A generated catalog as the library and later writers meet it: the library
// attaches it and shows its packets and trees; the folder trigger and forced
// writes are back; ids of later inserts come behind the generated ones; a
// catalog with rows of its own keeps them; a failed generation leaves
// nothing behind.
#include <gtest/gtest.h>

#include <set>

#include "GeneratedCatalogFixture.h"
#include "storage/ibpp/Exception.h"

namespace {

class GeneratedTree : public lxtest::GeneratedCatalogFixture {
 protected:
  static std::int32_t FoldersBelow(LxFolder* folder) {
    std::int32_t count = 1;
    const std::int32_t children = folder_GetChildFolderCount(folder);
    for (std::int32_t i = 0; i < children; ++i) count += FoldersBelow(folder_GetChildFolder(folder, i));
    return count;
  }

  std::set<std::wstring> PacketNamesInMemory() {
    std::set<std::wstring> names;
    for (std::int32_t i = 0; i < provider_GetPacketCount(provider_); ++i)
      names.insert(packet_GetName(provider_GetPacket(provider_, i)));
    return names;
  }
};

// 3 packets over 10 folders (4, 3, 3) with fan-out 2, a template in every
// leaf; nothing splits, so the library shows the stored trees as they are.
CatalogShape ThreePackets() {
  CatalogShape shape;
  shape.packets = 3;
  shape.totalFolders = 10;
  shape.fanOut = 2;
  shape.templatesPerFolder = 2;
  shape.sizesPerTemplate = 2;
  shape.attributes = 3;
  shape.commonAttributes = 1;
  return shape;
}

TEST_F(GeneratedTree, BoundsAreANestedSetTheTriggerComesBackAndTheLibraryShowsTheTrees) {
  ASSERT_NE(provider_, nullptr);
  ASSERT_TRUE(BoundTriggerActive());
  ASSERT_TRUE(ForcedWrites());
  Generate(ThreePackets());
  EXPECT_TRUE(ForcedWrites());
  EXPECT_TRUE(BoundTriggerActive());
  EXPECT_EQ(BrokenBounds(), 0);
  EXPECT_EQ(Sql().Int(L"SELECT MIN(LEFT_BOUND) FROM FOLDER"), 1);
  EXPECT_EQ(Sql().Int(L"SELECT MAX(RIGHT_BOUND) FROM FOLDER"), 20);

  ASSERT_TRUE(Reload());
  ASSERT_EQ(provider_GetPacketCount(provider_), 3);
  const std::vector<std::wstring> stored = Sql().Texts(L"SELECT PACKETID FROM PACKET");
  EXPECT_EQ(PacketNamesInMemory(), std::set<std::wstring>(stored.begin(), stored.end()));

  std::multiset<std::int32_t> folderCounts;
  for (std::int32_t i = 0; i < 3; ++i) {
    LxPacket* packet = provider_GetPacket(provider_, i);
    LxFolder* root = packet_GetRootFolder(packet);
    ASSERT_NE(root, nullptr);
    EXPECT_STREQ(folder_GetName(root), packet_GetName(packet));
    folderCounts.insert(FoldersBelow(root));
    // Children have their positions as names.
    std::set<std::wstring> names;
    for (std::int32_t c = 0; c < folder_GetChildFolderCount(root); ++c)
      names.insert(folder_GetName(folder_GetChildFolder(root, c)));
    EXPECT_EQ(names, (std::set<std::wstring>{L"Папка 1", L"Папка 2"}));
  }
  EXPECT_EQ(folderCounts, (std::multiset<std::int32_t>{3, 3, 4}));
}

TEST_F(GeneratedTree, GeneratorsStandPastEveryGeneratedId) {
  Generate(ThreePackets());
  const std::pair<const wchar_t*, const wchar_t*> tables[] = {
      {L"FOLDER", L"GEN_FOLDER_ID"},         {L"PACKET", L"GEN_PACKET_ID"},
      {L"OBJECT", L"GEN_OBJECT_ID"},         {L"OBJECTATTRIBUTE", L"GEN_OBJECTATTRIBUTE_ID"},
      {L"STANDARDSIZE", L"GEN_STANDARDSIZE_ID"}, {L"CONCRETEVALUE", L"GEN_CONCRETEVALUE_ID"},
      {L"ATTRIBUTEVALUE", L"GEN_ATTRIBUTEVALUE_ID"}};
  for (const auto& [table, generator] : tables) {
    const std::int32_t highest = Sql().Int(std::wstring(L"SELECT MAX(ID) FROM ") + table);
    EXPECT_GT(highest, 0) << table;
    EXPECT_EQ(Sql().Int(std::wstring(L"SELECT GEN_ID(") + generator + L", 0) FROM RDB$DATABASE"), highest) << table;
  }
  // So the triggers (EmptyCatalog.IdentifierTriggersFillTheId) give later
  // rows ids past the generated ones.
}

// A catalog with rows of its own keeps them, and two generations in one
// catalog stand side by side.
TEST_F(GeneratedTree, ACatalogWithRowsOfItsOwnKeepsThem) {
  // Ids written by hand, far above the generators, which stay at 0.
  Sql().Execute({L"INSERT INTO FOLDER (ID, NAME) VALUES (500, 'Свой')",
                 L"INSERT INTO PACKET (ID, PACKETID, FOLDERID) VALUES (300, 'Свой', 500)",
                 L"INSERT INTO CONCRETEVALUE (ID, INTVAL) VALUES (1000, 1)"});
  Generate(ThreePackets());
  EXPECT_EQ(Sql().Int(L"SELECT MIN(ID) FROM FOLDER WHERE ID <> 500"), 501);
  EXPECT_EQ(Sql().Int(L"SELECT MIN(ID) FROM PACKET WHERE ID <> 300"), 301);
  EXPECT_EQ(Sql().Int(L"SELECT MIN(ID) FROM CONCRETEVALUE WHERE ID <> 1000"), 1001);
  CatalogShape more = ThreePackets();
  more.seed = 99;
  Generate(more);
  EXPECT_EQ(Count(L"PACKET"), 7);
  EXPECT_EQ(Count(L"FOLDER"), 21);
  EXPECT_EQ(BrokenBounds(), 0);
  // The dictionaries hold each text once.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT NAME FROM ATTRIBUTENAME GROUP BY NAME HAVING COUNT(*) > 1)"), 0);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT IDENTIFIER FROM STANDARDSIZE GROUP BY 1 HAVING COUNT(*) > 1)"),
            0);
  ASSERT_TRUE(Reload());
  EXPECT_EQ(PacketNamesInMemory().size(), 7u);
  EXPECT_NE(provider_GetPacketByName(provider_, L"Свой"), nullptr);
}

TEST_F(GeneratedTree, AFailedGenerationLeavesNothingBehind) {
  // Stops the generation once it has written folders, templates and sizes.
  Sql().Execute(L"CREATE EXCEPTION TEST_STOP 'stopped by the test'");
  Sql().Execute(L"CREATE TRIGGER TEST_STOP_SIZE FOR STANDARDSIZE BEFORE INSERT AS BEGIN "
                L"IF (NEW.IDENTIFIER = 'ТР-5') THEN EXCEPTION TEST_STOP; END");
  EXPECT_THROW(Generate(ThreePackets()), IBPP::Exception);
  for (const wchar_t* table : {L"FOLDER", L"PACKET", L"OBJECT", L"OBJECTATTRIBUTE", L"STANDARDSIZE",
                               L"CONCRETEVALUE", L"ATTRIBUTEVALUE", L"ATTRIBUTENAME"}) {
    EXPECT_EQ(Count(table), 0) << table;
  }
  EXPECT_TRUE(BoundTriggerActive());
  EXPECT_TRUE(ForcedWrites());
  ASSERT_TRUE(Reload());
  EXPECT_EQ(provider_GetPacketCount(provider_), 0);

  // A catalog without object types is refused before any row.
  Sql().Execute(L"DELETE FROM OBJECTTYPE");
  EXPECT_THROW(Generate(ThreePackets()), std::runtime_error);
  EXPECT_EQ(Count(L"FOLDER"), 0);
  EXPECT_TRUE(BoundTriggerActive());
  EXPECT_TRUE(ForcedWrites());
}

}  // namespace
