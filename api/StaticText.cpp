#include "api/StaticText.h"

#include <algorithm>

void StaticText::Grow(std::size_t capacity) {
  buffers_.push_back(std::make_unique<wchar_t[]>(capacity + 1));
  capacity_ = capacity;
}

const wchar_t* StaticText::Assign(std::wstring_view text) {
  if (text.size() > capacity_) Grow(std::max(text.size(), 2 * capacity_));
  wchar_t* buffer = buffers_.back().get();
  std::copy(text.begin(), text.end(), buffer);
  buffer[text.size()] = L'\0';
  return buffer;
}

