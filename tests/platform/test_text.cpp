#include "platform/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <string>

using namespace vmc::platform;

namespace {

// The UTF-8 of a wide string, or "<failed>".
std::string Narrow(const std::wstring& wide, std::size_t outSize = 256) {
    std::string out(outSize, 'x');
    if (!WideToNarrow(wide.c_str(), out.data(), outSize)) {
        EXPECT_EQ(out[0], '\0') << "a failed conversion leaves an empty string";
        return "<failed>";
    }
    return out.c_str();
}

std::wstring Wide(const std::string& narrow, std::size_t outCount = 256) {
    std::wstring out(outCount, L'x');
    if (!NarrowToWide(narrow.c_str(), out.data(), outCount)) {
        EXPECT_EQ(out[0], L'\0') << "a failed conversion leaves an empty string";
        return L"<failed>";
    }
    return out.c_str();
}

}  // namespace

TEST(Text, WideEncodesAsUtf8) {
    EXPECT_EQ(Narrow(L""), "");
    EXPECT_EQ(Narrow(L"C:/data/run1.cihx"), "C:/data/run1.cihx");
    EXPECT_EQ(Narrow(L"\u00e9"), "\xc3\xa9");
    EXPECT_EQ(Narrow(L"\u20ac"), "\xe2\x82\xac");
    EXPECT_EQ(Narrow(L"\U0001F600"), "\xf0\x9f\x98\x80");
    EXPECT_EQ(Narrow(L"\U0010FFFF"), "\xf4\x8f\xbf\xbf");
    EXPECT_EQ(Narrow(std::wstring(1, wchar_t(0x7F)) + wchar_t(0x80) + wchar_t(0x7FF) + wchar_t(0x800) +
                     wchar_t(0xFFFF) + wchar_t(0x10000)),
              "\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80\xef\xbf\xbf\xf0\x90\x80\x80");
}

TEST(Text, CharactersWithoutEncodingAreRefused) {
    for (uint32_t bad : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        SCOPED_TRACE(bad);
        EXPECT_EQ(Narrow(std::wstring(L"ok") + static_cast<wchar_t>(bad)), "<failed>");
    }
}

TEST(Text, NarrowResultMustFitWithItsTerminator) {
    EXPECT_EQ(Narrow(L"abc", 4), "abc");
    EXPECT_EQ(Narrow(L"abc", 3), "<failed>");
    // A character is never split: "a€" needs 1 + 3 + 1 bytes.
    EXPECT_EQ(Narrow(L"a\u20ac", 5), "a\xe2\x82\xac");
    EXPECT_EQ(Narrow(L"a\u20ac", 4), "<failed>");
    EXPECT_EQ(Narrow(L"", 1), "");
    EXPECT_FALSE(WideToNarrow(L"", nullptr, 0));
}

TEST(Text, Utf8DecodesToWide) {
    EXPECT_EQ(Wide(""), L"");
    EXPECT_EQ(Wide("plain"), L"plain");
    EXPECT_EQ(Wide("\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80"), L"\u00e9\u20ac\U0001F600");
    EXPECT_EQ(Wide("\xf4\x8f\xbf\xbf"), L"\U0010FFFF");
    EXPECT_EQ(Wide("\xed\x9f\xbf\xee\x80\x80"), L"\uD7FF\uE000") << "the neighbours of the surrogates";
}

TEST(Text, MalformedUtf8IsRefused) {
    for (const char* bad : {
             "\x80",              // continuation without a lead
             "a\xbf",             //
             "\xc0\xaf",          // overlong '/'
             "\xc1\xbf",          // overlong
             "\xe0\x80\xaf",      // overlong '/'
             "\xe0\x9f\xbf",      // overlong U+07FF
             "\xf0\x80\x80\xaf",  // overlong '/'
             "\xf0\x8f\xbf\xbf",  // overlong U+FFFF
             "\xed\xa0\x80",      // surrogate D800
             "\xed\xbf\xbf",      // surrogate DFFF
             "\xf4\x90\x80\x80",  // above U+10FFFF
             "\xf5\x80\x80\x80",  // lead byte beyond the range
             "\xff",              //
             "\xe2\x82",          // truncated
             "\xf0\x9f\x98",      // truncated
             "\xe2\x28\xa1",      // second byte no continuation
             "\xc3\xa9\xc3",      // good then truncated
         }) {
        SCOPED_TRACE(::testing::PrintToString(std::string(bad)));
        EXPECT_EQ(Wide(bad), L"<failed>");
    }
}

TEST(Text, WideResultMustFitWithItsTerminator) {
    EXPECT_EQ(Wide("\xc3\xa9z", 3), L"\u00e9z");
    EXPECT_EQ(Wide("\xc3\xa9z", 2), L"<failed>");
    EXPECT_EQ(Wide("", 1), L"");
    EXPECT_FALSE(NarrowToWide("", nullptr, 0));
}

TEST(Text, ProcessLocaleDoesNotMatter) {
    // A program that selects its own locale must still get UTF-8 paths.
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(Narrow(L"\u00e9"), "\xc3\xa9");
    EXPECT_EQ(Wide("\xc3\xa9"), L"\u00e9");
    std::setlocale(LC_ALL, saved.c_str());
}
