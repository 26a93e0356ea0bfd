#include "platform/Report.h"

#include <locale>
#include <sstream>

#include "platform/PendingList.h"

void Report(std::wstring_view text, const char* method) {
  std::wostringstream message;
  message << text << L" [";
  for (const char* ch = method; *ch != '\0'; ++ch) message << static_cast<wchar_t>(static_cast<unsigned char>(*ch));
  message << L"]";
  Pending().Append(message.str());
}

void ReportIndexOutOfRange(std::int64_t index, std::int64_t count, const char* method) {
  std::wostringstream text;
  text << L"Индекс " << index << L" выходит за пределы диапазона [0, " << count << L")";
  Report(text.str(), method);
}


bool ReportFirstFailure(std::initializer_list<ArgumentCheck> checks, const char* method) {
  for (const ArgumentCheck& check : checks) {
    if (check.failed) {
      Report(check.message, method);
      return true;
    }
  }
  return false;
}
