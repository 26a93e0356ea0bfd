// The text an export hands out from a function-local static: one buffer per
// export, overwritten by that export's next call. A client may still hold the
// pointer of an earlier call, so the buffer stays where it is as long as the
// new text fits, and a buffer that had to be replaced is kept alive rather
// than freed: an old pointer shows the old text then, but never dangles.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

class StaticText {
 public:
  StaticText() { Grow(kInitialCapacity); }

  // Copies the text in (up to its first NUL is all a client will see) and
  // returns the buffer.
  const wchar_t* Assign(std::wstring_view text);

 private:
  static constexpr std::size_t kInitialCapacity = 256;
  void Grow(std::size_t capacity);

  std::vector<std::unique_ptr<wchar_t[]>> buffers_;  // the last one is current
  std::size_t capacity_ = 0;                         // characters, without the NUL
};

