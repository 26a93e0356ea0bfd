#include "platform/DebugChannel.h"

#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/TextCodec.h"

void WriteDebugText(std::wstring_view text) noexcept {
  try {
    const std::string utf8 = WideToUtf8(text);
    const char* data = utf8.data();
    std::size_t left = utf8.size();
    // A second write happens only when the kernel took part of the text
    // (a full pipe or a signal); there is no other way to deliver the rest.
    while (left > 0) {
      const ssize_t written = write(STDERR_FILENO, data, left);
      if (written < 0) {
        if (errno == EINTR) continue;
        return;
      }
      data += written;
      left -= static_cast<std::size_t>(written);
    }
  } catch (...) {
    // Out of memory while converting: the message is lost, the call is not.
  }
}

