// What a generation writes, read back in SQL: the rows the shape stands for,
// values in the columns of their types, attribute 11, formulas, and the same
// rows again for the same seed.
#include <gtest/gtest.h>

#include "GeneratedCatalogFixture.h"
#include "formula/FormulaParser.h"
#include "tools/CatalogGenerator/CatalogPlan.h"

namespace {

using lxtest::SmallTree;

// Counts over every value of a size, with its attribute row OA and value
// row CV.
const std::wstring kSizeValues =
    L"SELECT COUNT(*) FROM ATTRIBUTEVALUE AV JOIN OBJECTATTRIBUTE OA ON OA.ID = AV.OBJECTATTRIBUTEID "
    L"JOIN CONCRETEVALUE CV ON CV.ID = AV.CONCRETEVALUEID ";
// Values of attribute 11 that hold their size's identifier.
const std::wstring kIdentifierValues =
    kSizeValues + L"JOIN STANDARDSIZE S ON S.ID = AV.STANDARDSIZEID WHERE OA.NUMBER = 11 AND CV.STRVAL = S.IDENTIFIER";
// A value in the column of its attribute's type and in no other.
const std::wstring kRightColumn =
    L"((OA.ATTRTYPE = 1 AND CV.INTVAL IS NOT NULL AND CV.DOUBLEVAL IS NULL AND CV.STRVAL IS NULL) OR "
    L"(OA.ATTRTYPE = 2 AND CV.INTVAL IS NULL AND CV.DOUBLEVAL IS NOT NULL AND CV.STRVAL IS NULL) OR "
    L"(OA.ATTRTYPE = 3 AND CV.INTVAL IS NULL AND CV.DOUBLEVAL IS NULL AND CV.STRVAL IS NOT NULL))";

class Generation : public lxtest::GeneratedCatalogFixture {};

// The rows the shape stands for, and the progress told after every template.
TEST_F(Generation, WritesTheRowsTheShapeStandsFor) {
  std::vector<CatalogCounts> told;
  const CatalogCounts written = Generate(SmallTree(), [&](const CatalogCounts& so) { told.push_back(so); });
  ASSERT_EQ(told.size(), 24u);
  for (std::size_t i = 0; i < told.size(); ++i) EXPECT_EQ(told[i].templates, static_cast<std::int64_t>(i + 1));
  EXPECT_EQ(told.back().sizes, written.sizes);
  EXPECT_EQ(told.back().values, written.values);
  // The plan's totals are worked out by hand in CatalogPlanTest.
  CatalogCounts planned = CatalogPlan(SmallTree()).Totals();
  planned.newAttributeNames = planned.newAttributeDescriptions = 6;
  EXPECT_EQ(written, planned) << DescribeCounts(written);
  const std::pair<const wchar_t*, std::int64_t> rows[] = {
      {L"PACKET", written.packets}, {L"FOLDER", written.folders}, {L"OBJECT", written.templates},
      {L"STANDARDSIZE", written.sizes}, {L"OBJECTATTRIBUTE", written.templateAttributes},
      {L"ATTRIBUTEVALUE", written.sizeValues}, {L"CONCRETEVALUE", written.values},
      {L"ATTRIBUTENAME", written.newAttributeNames}, {L"ATTRIBUTEDESCRIPTION", written.newAttributeDescriptions}};
  for (const auto& [table, count] : rows) EXPECT_EQ(Count(table), count) << table;
  // Templates stand only in the leaves.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(DISTINCT FOLDERID) FROM OBJECT"), 8);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECT O WHERE EXISTS (SELECT 1 FROM FOLDER F WHERE F.ID_PARENT = "
                      L"O.FOLDERID)"),
            0);
  // The folder of each template descends from the root folder of the
  // template's packet.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECT O JOIN PACKET P ON P.ID = O.PACKETID "
                      L"JOIN FOLDER R ON R.ID = P.FOLDERID JOIN FOLDER F ON F.ID = O.FOLDERID "
                      L"WHERE F.LEFT_BOUND BETWEEN R.LEFT_BOUND AND R.RIGHT_BOUND"),
            24);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECT WHERE OBJECTTYPEID NOT IN (SELECT ID FROM OBJECTTYPE) "
                      L"OR REPRESENTATIONID <> (SELECT MIN(ID) FROM REPRESENTATION)"),
            0);
  // Identifiers are unique in each packet.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT O.PACKETID, S.IDENTIFIER FROM STANDARDSIZE S JOIN OBJECT O "
                      L"ON O.ID = S.OBJECTID GROUP BY 1, 2 HAVING COUNT(*) > 1)"),
            0);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM STANDARDSIZE WHERE IDENTIFIER = ''"), 0);
}

// Also: every value, of a size or common, stands in the column of its type.
TEST_F(Generation, EachSizeHasOneValueForEachPlainAttributeOfItsOwnTemplate) {
  Generate(SmallTree());
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM ATTRIBUTEVALUE AV JOIN STANDARDSIZE S ON S.ID = AV.STANDARDSIZEID "
                      L"JOIN OBJECTATTRIBUTE OA ON OA.ID = AV.OBJECTATTRIBUTEID WHERE OA.OBJECTID <> S.OBJECTID"),
            0);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT STANDARDSIZEID, OBJECTATTRIBUTEID FROM ATTRIBUTEVALUE "
                      L"GROUP BY 1, 2 HAVING COUNT(*) > 1)"),
            0);
  EXPECT_EQ(Sql().Texts(L"SELECT DISTINCT CAST(OA.NUMBER AS VARCHAR(6)) FROM ATTRIBUTEVALUE AV "
                        L"JOIN OBJECTATTRIBUTE OA ON OA.ID = AV.OBJECTATTRIBUTEID ORDER BY 1"),
            (std::vector<std::wstring>{L"11", L"21", L"22"}));
  // No value row shares a CONCRETEVALUE row with another.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(DISTINCT CONCRETEVALUEID) FROM ATTRIBUTEVALUE"), 144);
  EXPECT_EQ(Sql().Int(kSizeValues + L"WHERE NOT " + kRightColumn), 0);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE OA JOIN CONCRETEVALUE CV ON CV.ID = "
                      L"OA.CONCRETEVALUEID WHERE NOT " + kRightColumn),
            0);

  // Common values stand on the template, one distinct value per folder,
  // since nothing splits.
  EXPECT_EQ(Sql().Texts(L"SELECT DISTINCT CAST(NUMBER AS VARCHAR(6)) FROM OBJECTATTRIBUTE "
                        L"WHERE CONCRETEVALUEID IS NOT NULL"),
            (std::vector<std::wstring>{L"23"}));
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE WHERE CONCRETEVALUEID IS NOT NULL"), 24);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT O.FOLDERID FROM OBJECTATTRIBUTE OA JOIN OBJECT O ON O.ID = "
                      L"OA.OBJECTID JOIN CONCRETEVALUE CV ON CV.ID = OA.CONCRETEVALUEID GROUP BY O.FOLDERID "
                      L"HAVING COUNT(DISTINCT CV.STRVAL) = 1)"),
            8);
}

TEST_F(Generation, AttributeElevenHoldsEachSizesIdentifier) {
  Generate(SmallTree());
  // The literals go through the test's own conversion, so these match only
  // if the generator stored the same code page 1251 bytes.
  EXPECT_EQ(Sql().Texts(L"SELECT DISTINCT N.NAME || '|' || D.DESCRIPTION || '|' || OA.ATTRTYPE FROM "
                        L"OBJECTATTRIBUTE OA JOIN ATTRIBUTENAME N ON N.ID = OA.ATTRIBUTENAMEID JOIN "
                        L"ATTRIBUTEDESCRIPTION D ON D.ID = OA.ATTRIBUTEDESCRIPTIONID WHERE OA.NUMBER = 11"),
            (std::vector<std::wstring>{
                L"ID_specification|Идентификатор элемента (для идентификации и сортировки в спецификации)|3"}));
  EXPECT_EQ(Sql().Int(kIdentifierValues), 48);
}

TEST_F(Generation, FormulasParseAndReadNumbersOfTheirTemplate) {
  Generate(SmallTree());
  const std::vector<std::wstring> formulas =
      Sql().Texts(L"SELECT DISTINCT FORMULA FROM OBJECTATTRIBUTE WHERE FORMULA <> '' ORDER BY 1");
  ASSERT_EQ(formulas.size(), 2u);
  for (const std::wstring& formula : formulas) EXPECT_NO_THROW(ParseTextFormula(formula));
  // Formula attributes keep no value, and their templates have A21 as an
  // integer and A22 as a double.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE OA WHERE OA.FORMULA <> '' AND (OA.CONCRETEVALUEID "
                      L"IS NOT NULL OR EXISTS (SELECT 1 FROM ATTRIBUTEVALUE AV WHERE AV.OBJECTATTRIBUTEID = OA.ID))"),
            0);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(DISTINCT F.OBJECTID) FROM OBJECTATTRIBUTE F JOIN OBJECTATTRIBUTE A ON "
                      L"A.OBJECTID = F.OBJECTID AND A.NUMBER = 21 AND A.ATTRTYPE = 1 JOIN OBJECTATTRIBUTE B ON "
                      L"B.OBJECTID = F.OBJECTID AND B.NUMBER = 22 AND B.ATTRTYPE = 2 WHERE F.FORMULA <> ''"),
            24);
}

TEST_F(Generation, ManyValuesPerSizeAreWrittenWhole) {
  // 71 values per size: more than one statement's parameters can carry.
  CatalogShape shape;
  shape.sizesPerTemplate = 3;
  shape.attributes = 70;
  Generate(shape);
  EXPECT_EQ(Count(L"ATTRIBUTEVALUE"), 3 * 71);
  EXPECT_EQ(Count(L"CONCRETEVALUE"), 3 * 71);
  EXPECT_EQ(Sql().Int(kSizeValues + L"WHERE " + kRightColumn), 3 * 71);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM (SELECT STANDARDSIZEID FROM ATTRIBUTEVALUE GROUP BY 1 "
                      L"HAVING COUNT(DISTINCT OBJECTATTRIBUTEID) = 71)"),
            3);
  EXPECT_EQ(Sql().Int(kIdentifierValues), 3);
}

TEST_F(Generation, TheSameSeedWritesTheSameCatalog) {
  const std::wstring first = database_;
  const std::wstring second = NewCatalogFile("second.fdb");
  const std::wstring reseeded = NewCatalogFile("reseeded.fdb");
  CatalogShape shape = SmallTree();
  Generate(shape);
  CatalogGenerator(shape).Generate(connection_.server, second, connection_.user, connection_.password);
  shape.seed += 1;
  CatalogGenerator(shape).Generate(connection_.server, reseeded, connection_.user, connection_.password);
  auto textsOf = [&](const std::wstring& file, const std::wstring& query) {
    return lxtest::CatalogSql(connection_.server, file, connection_.user, connection_.password).Texts(query);
  };

  const std::wstring values =
      L"SELECT ID || '|' || COALESCE(INTVAL, '-') || '|' || COALESCE(DOUBLEVAL, '-') || '|' || "
      L"COALESCE(STRVAL, '-') FROM CONCRETEVALUE ORDER BY ID";
  const std::wstring rows =
      L"SELECT S.ID || '|' || S.IDENTIFIER || '|' || O.NAME || '|' || F.NAME || '|' || F.LEFT_BOUND FROM "
      L"STANDARDSIZE S JOIN OBJECT O ON O.ID = S.OBJECTID JOIN FOLDER F ON F.ID = O.FOLDERID ORDER BY S.ID";
  EXPECT_EQ(textsOf(first, values).size(), 168u);
  EXPECT_EQ(textsOf(first, values), textsOf(second, values));
  EXPECT_EQ(textsOf(first, rows), textsOf(second, rows));
  EXPECT_NE(textsOf(first, values), textsOf(reseeded, values));
  EXPECT_EQ(textsOf(first, rows), textsOf(reseeded, rows));
}

}  // namespace
