// Catalogs for the load tests: SQL for shapes the interface cannot make
// (templates with common values, several sizes per template, stored
// formulas, broken rows; ids are the caller's, so tests can name what they
// made), and what the client interface then shows, one line per fact and
// sorted, so that two loads compare as wholes whatever order the database
// returned rows in.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "LxDataAccess.h"

namespace lxtest::shapes {

std::wstring Folder(std::int32_t id, const std::wstring& name, std::int32_t parent = 0);
std::wstring Packet(std::int32_t id, const std::wstring& name, std::int32_t rootFolder);
std::wstring Template(std::int32_t id, std::int32_t folder, std::int32_t packet, const std::wstring& name,
                      std::int32_t objectType = 1);
// A column row of a template; `value` is an SQL literal for the common
// value's IVAL, DVAL or SVAL slot (by type), or NULL for none.
std::wstring Column(std::int32_t templateId, std::int32_t number, std::int32_t type, const std::wstring& name,
                    const std::wstring& value = L"NULL", const std::wstring& formula = L"");
std::wstring Size(std::int32_t id, std::int32_t templateId, const std::wstring& identifier);
// A size's own value of column `number`; `value` an SQL literal of the type.
std::wstring SizeValue(std::int32_t sizeId, std::int32_t number, std::int32_t type, const std::wstring& value);
// `count` sizes "<prefix><i>", i from 1, ids from firstId, in the template,
// each with own values of columns 21 (integer 3i), 22 (double i/4, which
// SQL keeps to one decimal) and 23 (text "t<i>").
std::wstring ManySizes(std::int32_t firstId, std::int32_t templateId, const std::wstring& prefix, std::int32_t count);
// `count` templates in the folder, ids from firstId, each with the columns
// 21 (integer, common value 7) and 22 (text) and one size "<prefix><i>".
std::wstring ManyTemplates(std::int32_t firstId, std::int32_t folder, std::int32_t packet, const std::wstring& prefix,
                           std::int32_t count);

}  // namespace lxtest::shapes

namespace lxtest {

// Every folder below `folder` (by path from it), every column of its table
// and every size with the value of every column.
std::vector<std::wstring> DumpFolder(LxFolder* folder);

// The kind and text of a size's value of one column ("i:12", "d:7.9",
// "s:Ст3"), "<none>" when it has none; numbers in the format given (null
// for the library's default) reach only calculated texts.
extern const NumberFormat kDumpFormat;
std::wstring ValueText(LxStdSize* size, LxAttribute* attribute, const NumberFormat* format = &kDumpFormat);

}  // namespace lxtest
