// The debug channel: where the library's messages go. On this platform it is
// standard error, one write(2) per text so that texts from concurrent
// processes or threads never interleave inside one flush.
#pragma once

#include <string_view>

// Writes the text as UTF-8 in one write(2). Never throws; a failed write is
// dropped, as the channel has no reader to tell.
void WriteDebugText(std::wstring_view text) noexcept;

