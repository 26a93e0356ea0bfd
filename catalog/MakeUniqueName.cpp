#include "catalog/MakeUniqueName.h"

#include <cerrno>
#include <cwchar>

namespace {

// Reads "base (n)" with n a nonzero decimal integer; on success sets base and
// counter. The blank before "(" is dropped from the base; a "(" that opens
// the name leaves the whole name as base.
void SplitCounter(const std::wstring& name, std::wstring& base, long& counter) {
  if (name.empty() || name.back() != L')') return;
  const std::size_t open = name.rfind(L'(');
  if (open == std::wstring::npos) return;
  const std::wstring digits = name.substr(open + 1, name.size() - open - 2);
  if (digits.empty()) return;
  wchar_t* end = nullptr;
  errno = 0;
  const long number = std::wcstol(digits.c_str(), &end, 10);
  if (end != digits.c_str() + digits.size() || errno == ERANGE || number == 0) return;
  counter = number;
  if (open > 0) base = name.substr(0, open - 1);
}

}  // namespace

std::wstring MakeUniqueName(const std::wstring& name, const std::function<bool(const std::wstring&)>& exists) {
  if (!exists(name)) return name;
  std::wstring base = name;
  long counter = 0;
  SplitCounter(name, base, counter);
  for (;; ++counter) {
    std::wstring candidate = base + L" (" + std::to_wstring(counter) + L")";
    if (!exists(candidate)) return candidate;
  }
}
