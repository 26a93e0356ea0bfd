// The command line of lxgen.
#include <gtest/gtest.h>

#include "tools/CatalogGenerator/LxgenArguments.h"

namespace {

LxgenArguments Parsed(const std::vector<std::string>& arguments) {
  auto parsed = ParseLxgenArguments(arguments);
  if (auto* problem = std::get_if<std::string>(&parsed)) ADD_FAILURE() << "refused: " << *problem;
  return std::get_if<LxgenArguments>(&parsed) ? std::get<LxgenArguments>(parsed) : LxgenArguments{};
}

std::string Refusal(const std::vector<std::string>& arguments) {
  auto parsed = ParseLxgenArguments(arguments);
  if (auto* problem = std::get_if<std::string>(&parsed)) return *problem;
  ADD_FAILURE() << "accepted";
  return {};
}

TEST(LxgenArguments, ReadsTheShapeAndTheCatalog) {
  const LxgenArguments arguments =
      Parsed({"--packets", "1000", "--folders", "20000", "--fan-out", "4", "--templates", "3", "--sizes", "20000",
              "--attributes", "20", "--common", "2", "--formulas", "2", "--split", "2", "--split-by", "attributes",
              "--seed", "42", "--all-folders", "--no-id-specification", "out.fdb"});
  EXPECT_EQ(arguments.catalog, "out.fdb");
  EXPECT_TRUE(arguments.shape == (CatalogShape{.seed = 42, .packets = 1000, .fanOut = 4, .totalFolders = 20000,
                                               .templatesInLeavesOnly = false, .templatesPerFolder = 3,
                                               .sizesPerPacket = 20000, .attributes = 20, .commonAttributes = 2,
                                               .formulaAttributes = 2, .idSpecification = false, .splitGroups = 2,
                                               .splitBy = SplitBy::AttributeSets}));
  const CatalogShape content =
      Parsed({"--model-bytes", "1048576", "--models", "200", "--projections", "2", "--fragment-bytes", "65536",
              "--fragments", "300", "--thumbnail-bytes", "8192", "c.fdb"})
          .shape;
  EXPECT_EQ(std::vector<std::int32_t>({content.modelBytes, content.distinctModels, content.projectionsPerTemplate,
                                       content.fragmentBytes, content.distinctFragments, content.thumbnailBytes}),
            std::vector<std::int32_t>({1048576, 200, 2, 65536, 300, 8192}));
  // The connection: embedded as SYSDBA unless named.
  EXPECT_EQ(arguments.server, "");
  EXPECT_EQ(arguments.user, "SYSDBA");
  const LxgenArguments remote = Parsed({"--server", "127.0.0.1/3051", "--user", "U", "--password", "p", "a.fdb"});
  EXPECT_EQ(remote.server, "127.0.0.1/3051");
  EXPECT_EQ(remote.user, "U");
  EXPECT_EQ(remote.password, "p");
}

TEST(LxgenArguments, RefusesWhatItCantUse) {
  EXPECT_EQ(Refusal({}), "name exactly one catalog file");
  EXPECT_EQ(Refusal({"a.fdb", "b.fdb"}), "name exactly one catalog file");
  EXPECT_EQ(Refusal({"--packets", "x", "a.fdb"}), "--packets expects a count, not 'x'");
  EXPECT_EQ(Refusal({"--packets", "-1", "a.fdb"}), "--packets expects a count, not '-1'");
  EXPECT_EQ(Refusal({"--sizes", "5000000000", "a.fdb"}), "--sizes expects a count, not '5000000000'");
  EXPECT_EQ(Refusal({"a.fdb", "--depth"}), "--depth needs a value");
  EXPECT_EQ(Refusal({"--colour", "a.fdb"}), "unknown option --colour");
  EXPECT_EQ(Refusal({"--split-by", "size", "a.fdb"}), "--split-by expects 'values' or 'attributes', not 'size'");
  EXPECT_EQ(Refusal({"--packets", "0", "a.fdb"}), "there must be at least one packet");
  EXPECT_EQ(Refusal({"--help"}), "");
}

}  // namespace
