// ContentFixture: the packet of TableFixture with two templates in "Болты",
// "T" (501) with the sizes S1 (601) and S2 (602) and "U" (502) with U1
// (603), and the helpers the tests of attached content and command documents
// share: blobs in their stored form as SQL literals, and specifications as
// the database holds them and as the interface shows them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "Bytes.h"
#include "CatalogFixture.h"
#include "content/ByteData.h"

namespace lxtest {

class ContentFixture : public TableFixture {
 protected:
  void SetUp() override {
    TableFixture::SetUp();
    Sql().Execute({TemplateRow(501, L"T", folderId_), TemplateRow(502, L"U", folderId_), SizeRow(601, 501, L"S1"),
                   SizeRow(602, 501, L"S2"), SizeRow(603, 502, L"U1")});
    ReloadAndWalk();
    s1_ = Size(L"S1");
    s2_ = Size(L"S2");
    u1_ = Size(L"U1");
    ASSERT_TRUE(s1_ && s2_ && u1_);
  }

  // A SQL binary literal of the bytes as the catalog stores content: the
  // length, then the compressed stream.
  static std::wstring StoredLiteral(const Bytes& content) {
    ByteData data(content.data(), static_cast<std::int32_t>(content.size()));
    data.Compress();
    static const wchar_t* digits = L"0123456789ABCDEF";
    std::wstring text = L"x'";
    for (std::int32_t i = 0; i < data.Size(); ++i) {
      text += digits[data.Data()[i] >> 4];
      text += digits[data.Data()[i] & 15];
    }
    return text + L"'";
  }

  // A SPECIFICATION row of the template and its columns, as SQL.
  std::vector<std::wstring> SpecRows(std::int32_t id, std::int32_t templateId, const std::wstring& libName,
                                     std::int32_t style, const std::vector<std::wstring>& formulas) const {
    std::vector<std::wstring> rows{L"INSERT INTO SPECIFICATION (ID, IDOBJECT, STYLENUMBER, FIRSTPART, SECONDPART, "
                                   L"LIBNAME) VALUES (" +
                                   std::to_wstring(id) + L", " + std::to_wstring(templateId) + L", " +
                                   std::to_wstring(style) + L", 1, 2, " + Quoted(libName) + L")"};
    for (std::size_t i = 0; i < formulas.size(); ++i)
      rows.push_back(L"INSERT INTO SPECIFICATIONCOLUMN (SPECIFICATIONID, COLNUMBER, FORMULA) VALUES (" +
                     std::to_wstring(id) + L", " + std::to_wstring(i + 1) + L", " + Quoted(formulas[i]) + L")");
    return rows;
  }
  void Execute(const std::vector<std::wstring>& statements) {
    for (const std::wstring& statement : statements) Sql().Execute(statement);
  }

  // The specifications of a template as stored, one line each,
  // "libName|style|first|second|num=formula;...", sorted.
  Texts StoredSpecs(std::int32_t templateId) {
    return Sql().Texts(
        L"SELECT s.LIBNAME || '|' || s.STYLENUMBER || '|' || s.FIRSTPART || '|' || s.SECONDPART || '|' || "
        L"COALESCE((SELECT CAST(LIST(c.COLNUMBER || '=' || c.FORMULA, ';') AS VARCHAR(8000)) FROM (SELECT COLNUMBER, FORMULA FROM "
        L"SPECIFICATIONCOLUMN WHERE SPECIFICATIONID = s.ID ORDER BY COLNUMBER, FORMULA) c), '') FROM "
        L"SPECIFICATION s WHERE s.IDOBJECT = " +
        std::to_wstring(templateId) + L" ORDER BY 1");
  }
  // The same lines as the interface shows them for a size.
  static Texts SeenSpecs(LxStdSize* size) {
    Texts lines;
    for (std::int32_t i = 0; i < stdsize_GetSpecificationCount(size); ++i) {
      LxSpec* spec = stdsize_GetSpecification(size, i);
      std::vector<std::pair<std::int32_t, std::wstring>> columns;
      for (std::int32_t c = 0; c < spec_ColumnCount(spec); ++c)
        columns.emplace_back(spec_ColumnNumber(spec, c), spec_ColumnFormula(spec, c));
      std::sort(columns.begin(), columns.end());
      std::wstring line = std::wstring(spec_LibName(spec)) + L"|" + std::to_wstring(spec_Style(spec)) + L"|" +
                          std::to_wstring(spec_FirstPart(spec)) + L"|" + std::to_wstring(spec_SecondPart(spec)) + L"|";
      for (std::size_t c = 0; c < columns.size(); ++c)
        line += (c ? L";" : L"") + std::to_wstring(columns[c].first) + L"=" + columns[c].second;
      lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
  }
  std::vector<std::int32_t> SpecIds(std::int32_t templateId) {
    std::vector<std::int32_t> ids;
    for (const std::wstring& id : Sql().Texts(L"SELECT CAST(ID AS VARCHAR(12)) FROM SPECIFICATION WHERE IDOBJECT = " +
                                              std::to_wstring(templateId) + L" ORDER BY ID"))
      ids.push_back(std::stoi(id));
    return ids;
  }

  LxStdSize* s1_ = nullptr;
  LxStdSize* s2_ = nullptr;
  LxStdSize* u1_ = nullptr;
};

}  // namespace lxtest
