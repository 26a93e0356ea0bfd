#include "api/CallFrame.h"

#include <stdexcept>

#include "formula/NumberText.h"
#include "platform/TextCodec.h"
#include "storage/ibpp/Exception.h"

namespace {

// The frame's own texts are narrow UTF-8 and become wide once, when appended.
void AppendNarrow(const std::string& message) { Pending().Append(Utf8ToWide(message)); }

}  // namespace

CallFrame::CallFrame(const char* function) : lock_(FrameLock()), function_(function) { Pending().Clear(); }

CallFrame::~CallFrame() { Pending().Flush(); }

CallFrame& CallFrame::Handle(const void* handle, const char* argumentName) {
  if (failed_ || handle != nullptr) return *this;
  failed_ = true;
  try {
    AppendNarrow(std::string("Передан нулевой указатель на объект ") + argumentName + " (fun: " + function_ + ")");
  } catch (...) {
    // Out of memory: the call still fails, only without its message.
  }
  return *this;
}

void CallFrame::ReportCurrentException() noexcept {
  try {
    try {
      throw;
    } catch (const IBPP::Exception& error) {
      AppendNarrow(std::string(" (fun: ") + function_ + ")\n" + error.what());
    } catch (...) {
      AppendNarrow(std::string(" (fun: ") + function_ + ") Неизвестное исключение");
    }
  } catch (...) {
    // Reporting itself ran out of memory; the failure result still stands.
  }
}

std::wstring_view Required(const wchar_t* text) {
  if (text == nullptr) throw std::invalid_argument("null string argument");
  return text;
}

const NumberFormat& FormatOrDefault(const NumberFormat* format) { return format ? *format : kDefaultNumberFormat; }
