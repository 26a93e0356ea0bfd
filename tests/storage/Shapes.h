// SQL for catalog shapes the interface cannot make: templates with common
// values, several sizes per template, stored formulas, broken rows. Ids are
// the caller's, so tests can name what they made.
#pragma once

#include <cstdint>
#include <string>

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
