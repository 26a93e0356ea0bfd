#include "platform/PendingList.h"

#include "platform/DebugChannel.h"

PendingList& Pending() {
  static PendingList list;
  return list;
}

std::wstring PendingList::DebugText() const {
  std::wstring text = L">LxDataAcces: ";
  std::wstring indent;
  for (const std::wstring& message : messages_) {
    text += indent;
    text += message;
    text += L'\n';
    indent += L">   ";
  }
  return text;
}

void PendingList::Flush() const noexcept {
  if (messages_.empty()) return;
  try {
    WriteDebugText(DebugText());
  } catch (...) {
    // Out of memory while building the text: the messages are lost, the
    // call's result is not.
  }
}

