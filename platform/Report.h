// How class methods report a logical failure: the text, " [", the reporting
// method's name, "]", appended to the current call's pending list. The method
// then returns false, null or 0; it does not throw.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

// `method` is the narrow "Class::_Method" name, plain ASCII.
void Report(std::wstring_view text, const char* method);

// "Индекс <index> выходит за пределы диапазона [0, <count>)".
void ReportIndexOutOfRange(std::int64_t index, std::int64_t count, const char* method);

// One argument check of a method that tests its arguments in a fixed order.
struct ArgumentCheck {
  bool failed;
  const wchar_t* message;
};
// Reports the first failed check for `method`; true when one failed.
bool ReportFirstFailure(std::initializer_list<ArgumentCheck> checks, const char* method);

