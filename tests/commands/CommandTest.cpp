// Command documents on real catalogs: create_spec replaces the
// specifications of a template for all its sizes, and a document commits
// whole or not at all.
#include <string>

#include "ContentFixture.h"
#include "platform/TextCodec.h"

namespace lxtest {
namespace {

class Commands : public ContentFixture {
 protected:
  void SetUp() override {
    ContentFixture::SetUp();
    Execute(SpecRows(11, 501, L"старая", 7, {L"{A1}", L"{A2}"}));
    Execute(SpecRows(12, 502, L"чужая", 9, {L"{A3}"}));
  }
  // Both templates' rows, so that a check sees what a document touched
  // beyond its own template.
  Texts Everything() {
    Texts rows = StoredSpecs(501);
    rows.push_back(L"--");
    for (const std::wstring& row : StoredSpecs(502)) rows.push_back(row);
    return rows;
  }
  std::pair<bool, Writes> Run(const std::wstring& document) {
    return Captured([&] { return provider_RunCommand(provider_, document.c_str()); });
  }
  static std::wstring CreateSpec(const std::wstring& size, const std::wstring& specs) {
    return L"<command type=\"create_spec\"><stdSize packet=\"Пакет\" id=\"" + size + L"\"/>" + specs + L"</command>";
  }
  static std::wstring Doc(const std::wstring& commands) { return L"<commands>" + commands + L"</commands>"; }

  const std::wstring kTwoSpecs =
      L"<spec libName=\"новая\" styleNum=\"3\" firstPart=\"4\" secondPart=\"5\">"
      L"<column num=\"1\" formula=\"Болт {A21}\"/><column num=\"2\" formula=\"{A22}*2\"/></spec>"
      L"<spec libName=\"пустая\" styleNum=\"6\"/>";
};

TEST_F(Commands, ACreateSpecReplacesTheTemplatesRecordsForEverySize) {
  ASSERT_EQ(SeenSpecs(s2_), (Texts{L"старая|7|1|2|1={A1};2={A2}"}));
  ASSERT_EQ(Run(Doc(CreateSpec(L"S1", kTwoSpecs))), Quietly(true));
  const Texts expected{L"новая|3|4|5|1=Болт {A21};2={A22}*2", L"пустая|6|0|0|"};
  EXPECT_EQ(StoredSpecs(501), expected);
  EXPECT_EQ(SeenSpecs(s2_), expected);
  EXPECT_EQ(SeenSpecs(s1_), expected);
  EXPECT_EQ(stdsize_GetSpecification(s1_, 0), stdsize_GetSpecification(s2_, 0));
  EXPECT_EQ(StoredSpecs(502), Texts{L"чужая|9|1|2|1={A3}"});
  EXPECT_EQ(Count(L"SPECIFICATIONCOLUMN WHERE SPECIFICATIONID = 11"), 0);

  // The same document again: the same rows, under new ids.
  const std::vector<std::int32_t> first = SpecIds(501);
  ASSERT_EQ(Run(Doc(CreateSpec(L"S2", kTwoSpecs))), Quietly(true));
  EXPECT_EQ(StoredSpecs(501), expected);
  const std::vector<std::int32_t> second = SpecIds(501);
  ASSERT_EQ(second.size(), 2u);
  EXPECT_GT(second.front(), first.back());
  EXPECT_EQ(SeenSpecs(s1_), expected);

  // No spec at all clears the template.
  ASSERT_EQ(Run(Doc(CreateSpec(L"S1", L""))), Quietly(true));
  EXPECT_EQ(StoredSpecs(501), Texts{});
  EXPECT_EQ(Count(L"SPECIFICATIONCOLUMN WHERE SPECIFICATIONID NOT IN (SELECT ID FROM SPECIFICATION)"), 0);
  EXPECT_EQ(stdsize_GetSpecificationCount(s2_), 0);
  EXPECT_EQ(StoredSpecs(502), Texts{L"чужая|9|1|2|1={A3}"});
}

TEST_F(Commands, DocumentsWithoutAKnownCommandOrThatDoNotParseDoNothing) {
  const Texts before = Everything();
  for (const std::wstring& document :
       {std::wstring(L"<commands/>"), std::wstring(L"<commands></commands>"),
        Doc(L"<command type=\"Create_Spec\"><stdSize packet=\"Пакет\" id=\"S1\"/></command>"),
        std::wstring(L"<other>") + CreateSpec(L"S1", L"") + L"</other>",
        L"<commands>" + CreateSpec(L"S1", L""), std::wstring(L"")}) {
    EXPECT_EQ(Run(document), Quietly(false)) << ::testing::PrintToString(WideToUtf8(document));
  }
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(SeenSpecs(s1_), Texts{L"старая|7|1|2|1={A1};2={A2}"});
}

TEST_F(Commands, AMissingSizeIsReportedAndTheRestCommits) {
  const auto [result, writes] =
      Run(Doc(CreateSpec(L"Нет", kTwoSpecs) + CreateSpec(L"U1", L"<spec libName=\"x\"><column formula=\"1\"/></spec>")));
  EXPECT_TRUE(result);
  EXPECT_EQ(writes, Flushed({"Не нашил типоразмер при создании спецификаций, packet = Пакет id = Нет [CSpecCommand::Run]"}));
  EXPECT_EQ(StoredSpecs(501), Texts{L"старая|7|1|2|1={A1};2={A2}"});
  // A column without a number is column 0.
  EXPECT_EQ(StoredSpecs(502), Texts{L"x|0|0|0|0=1"});
  EXPECT_EQ(SeenSpecs(u1_), Texts{L"x|0|0|0|0=1"});

  // Only the unknown packet: the command ran, so the document counts.
  EXPECT_EQ(Run(Doc(L"<command type=\"create_spec\"><stdSize packet=\"Нет\" id=\"S1\"/></command>")),
            std::make_pair(true, Flushed({"Не нашил типоразмер при создании спецификаций, packet = Нет id = S1 "
                                          "[CSpecCommand::Run]"})));
}

// Nothing read the template's list before: the second command finds the
// first one's rows on the document's own transaction and replaces them.
TEST_F(Commands, TwoCommandsOnOneTemplateLeaveOnlyTheSecondsRecords) {
  const std::wstring second = L"<spec libName=\"вторая\"><column num=\"7\" formula=\"{A7}\"/></spec>";
  ASSERT_EQ(Run(Doc(CreateSpec(L"S1", kTwoSpecs) + CreateSpec(L"S2", second))), Quietly(true));
  EXPECT_EQ(StoredSpecs(501), Texts{L"вторая|0|0|0|7={A7}"});
  EXPECT_EQ(Count(L"SPECIFICATIONCOLUMN WHERE SPECIFICATIONID NOT IN (SELECT ID FROM SPECIFICATION)"), 0);
  EXPECT_EQ(SeenSpecs(s1_), Texts{L"вторая|0|0|0|7={A7}"});
}

TEST_F(Commands, AFailureInTheDatabaseRollsBackTheWholeDocument) {
  Sql().Execute(L"CREATE EXCEPTION E_REFUSED 'refused'");
  Sql().Execute(
      L"CREATE TRIGGER T_REFUSE FOR SPECIFICATIONCOLUMN BEFORE INSERT AS BEGIN "
      L"IF (NEW.FORMULA = 'запрет') THEN EXCEPTION E_REFUSED; END");
  const Texts before = Everything();
  ASSERT_EQ(SeenSpecs(s1_), Texts{L"старая|7|1|2|1={A1};2={A2}"});
  const auto failed = Run(Doc(CreateSpec(L"S1", kTwoSpecs) +
                              CreateSpec(L"U1", L"<spec libName=\"y\"><column num=\"1\" formula=\"запрет\"/></spec>")));
  EXPECT_TRUE(FailedInDatabase(failed, "provider_RunCommand"));
  EXPECT_EQ(Everything(), before);
  // The dropped list is read again and shows the rolled-back rows.
  EXPECT_EQ(SeenSpecs(s2_), Texts{L"старая|7|1|2|1={A1};2={A2}"});
  EXPECT_EQ(SeenSpecs(u1_), Texts{L"чужая|9|1|2|1={A3}"});
}

}  // namespace
}  // namespace lxtest
