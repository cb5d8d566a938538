#include "platform/text.h"

#include <cstdint>

// Both directions are written out by hand rather than through the C library's
// multibyte functions, which follow the process locale: the library must give
// the same bytes whatever locale its host program has set.

namespace vmc::platform {
namespace {

constexpr uint32_t kMaxCodePoint = 0x10FFFF;

bool IsSurrogate(uint32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

// Reports a failure with the output left empty, so that half a path is never
// taken for a path.
template <typename Char>
bool Fail(Char* out, std::size_t size) {
    if (out && size > 0) out[0] = 0;
    return false;
}

// Encodes c into buf; returns the byte count (1 to 4).
std::size_t EncodeUtf8(uint32_t c, unsigned char buf[4]) {
    if (c < 0x80) {
        buf[0] = static_cast<unsigned char>(c);
        return 1;
    }
    if (c < 0x800) {
        buf[0] = static_cast<unsigned char>(0xC0 | (c >> 6));
        buf[1] = static_cast<unsigned char>(0x80 | (c & 0x3F));
        return 2;
    }
    if (c < 0x10000) {
        buf[0] = static_cast<unsigned char>(0xE0 | (c >> 12));
        buf[1] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
        buf[2] = static_cast<unsigned char>(0x80 | (c & 0x3F));
        return 3;
    }
    buf[0] = static_cast<unsigned char>(0xF0 | (c >> 18));
    buf[1] = static_cast<unsigned char>(0x80 | ((c >> 12) & 0x3F));
    buf[2] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
    buf[3] = static_cast<unsigned char>(0x80 | (c & 0x3F));
    return 4;
}

// Decodes one character at *p and advances past it; false on malformed input:
// a stray continuation byte, a lead byte that no encoding uses, a truncated
// sequence, an overlong form, a surrogate or a value above U+10FFFF.
bool DecodeUtf8(const unsigned char*& p, uint32_t* c) {
    const unsigned char lead = *p;
    std::size_t extra;
    uint32_t value;
    uint32_t lowest;  // the smallest value that needs this many bytes
    if (lead < 0x80) {
        *c = lead;
        ++p;
        return true;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
        extra = 1, value = lead & 0x1F, lowest = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        extra = 2, value = lead & 0x0F, lowest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        extra = 3, value = lead & 0x07, lowest = 0x10000;
    } else {
        return false;  // 80-BF stray, C0/C1 always overlong, F5-FF beyond range
    }
    for (std::size_t i = 1; i <= extra; ++i) {
        // Stops at the terminator as well, which is no continuation byte.
        if ((p[i] & 0xC0) != 0x80) return false;
        value = (value << 6) | (p[i] & 0x3F);
    }
    if (value < lowest || value > kMaxCodePoint || IsSurrogate(value)) return false;
    *c = value;
    p += extra + 1;
    return true;
}

}  // namespace

bool WideToNarrow(const wchar_t* in, char* out, std::size_t outSize) {
    if (!out || outSize == 0) return false;
    if (!in) in = L"";
    std::size_t used = 0;
    for (; *in; ++in) {
        const auto c = static_cast<uint32_t>(*in);
        if (c > kMaxCodePoint || IsSurrogate(c)) return Fail(out, outSize);
        unsigned char buf[4];
        const std::size_t n = EncodeUtf8(c, buf);
        if (n >= outSize - used) return Fail(out, outSize);  // keeps room for the terminator
        for (std::size_t i = 0; i < n; ++i) out[used++] = static_cast<char>(buf[i]);
    }
    out[used] = '\0';
    return true;
}

bool NarrowToWide(const char* in, wchar_t* out, std::size_t outCount) {
    if (!out || outCount == 0) return false;
    if (!in) in = "";
    const auto* p = reinterpret_cast<const unsigned char*>(in);
    std::size_t used = 0;
    while (*p) {
        uint32_t c;
        if (!DecodeUtf8(p, &c)) return Fail(out, outCount);
        if (used + 1 >= outCount) return Fail(out, outCount);
        out[used++] = static_cast<wchar_t>(c);
    }
    out[used] = L'\0';
    return true;
}

}  // namespace vmc::platform
