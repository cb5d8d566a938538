// Conversion between wide strings (wchar_t, UTF-32) and narrow ones (UTF-8).
#pragma once

#include <cstddef>

namespace vmc::platform {

// Writes a zero-terminated narrow string of at most outSize bytes including the
// terminator. False when a character has no encoding (a surrogate, or above
// U+10FFFF) or the result does not fit; out is then left zero-terminated.
bool WideToNarrow(const wchar_t* in, char* out, std::size_t outSize);
// Writes at most outCount wide characters including the terminator. False on
// malformed UTF-8 or when the result does not fit.
bool NarrowToWide(const char* in, wchar_t* out, std::size_t outCount);

}  // namespace vmc::platform
