#include "base/text.h"

#include <gtest/gtest.h>

namespace tul {
namespace {

using Lines = std::vector<std::string_view>;

TEST(Text, CaseIsOfTheLettersAToZOnly) {
    EXPECT_EQ(upperCase("a-z@[`{\xE4\xFF"), "A-Z@[`{\xE4\xFF");
    EXPECT_TRUE(equalIgnoringCase("TulScore.exe", "TULSCORE.EXE"));
    EXPECT_FALSE(equalIgnoringCase("abc", "abcd"));
    EXPECT_FALSE(equalIgnoringCase("\xE4", "\xC4"));
    EXPECT_TRUE(containsIgnoringCase("C:\\Music\\Files.tmp", "\\FILES.TMP"));
    EXPECT_TRUE(containsIgnoringCase("", ""));
    EXPECT_FALSE(containsIgnoringCase("FILES", "FILES.TMP"));
}

TEST(Text, TrimmingTakesBlanksOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trimLeft("  a "), "a ");
    EXPECT_EQ(trimRight(" a  "), " a");
    EXPECT_EQ(trim(" \ta\r "), "\ta\r");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
}

TEST(Text, LinesEndAtEveryKindOfLineEnd) {
    using namespace std::string_view_literals;
    EXPECT_EQ(linesOf(""), Lines());
    EXPECT_EQ(linesOf("a"), Lines({"a"}));
    EXPECT_EQ(linesOf("a\n"), Lines({"a"}));
    EXPECT_EQ(linesOf("a\n\nb"), Lines({"a", "", "b"}));
    EXPECT_EQ(linesOf("a\r\nb\rc\nd\r"), Lines({"a", "b", "c", "d"}));
    EXPECT_EQ(linesOf("\r\r\n\n\r"), Lines({"", "", "", ""}));
    EXPECT_EQ(linesOf("a\0b\nc\x1A"sv), Lines({"a\0b"sv, "c\x1A"}));
}

TEST(Text, ValidUtf8StaysAsItIs) {
    for (const char* text : {"", "abc", "\xC3\xA4", "\xE2\x82\xAC", "\xED\x9F\xBF", "\xEE\x80\x80",
                             "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_EQ(toUtf8(text), text);
}

TEST(Text, WhatWasTypedBecomesSingleBytesWhereItCan) {
    EXPECT_EQ(toSingleBytes("_00schl\xC3\xA4\x66t \xE2\x82\xAC"), "_00schl\xE4\x66t \x80");
    EXPECT_EQ(toSingleBytes("schl\xE4\x66t"), "schl\xE4\x66t") << "it is single bytes already";
    EXPECT_EQ(toSingleBytes("\xC3\xA4\xE6\xBC\xA2"), "\xC3\xA4\xE6\xBC\xA2") << "there is no byte for it";
}

TEST(Text, AnythingElseIsTakenAsWindows1252) {
    EXPECT_EQ(toUtf8("M\xE4rz \x80\x9F"), "M\xC3\xA4rz \xE2\x82\xAC\xC5\xB8");
    EXPECT_EQ(toUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
    EXPECT_EQ(toUtf8("\xC3\xA4\xFF"), "\xC3\x83\xC2\xA4\xC3\xBF");
    // What lies behind the end of the text does not complete its last character.
    EXPECT_EQ(toUtf8(std::string_view("\xC3\xA4").substr(0, 1)), "\xC3\x83");
    // Cut off, overlong, a surrogate, beyond the last code point: each would pass a loose check unchanged.
    for (const char* text :
         {"\xC3", "\xE2\x82", "\xC3x", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80",
          "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82x", "\xA0"}) {
        EXPECT_NE(toUtf8(text), text);
        EXPECT_EQ(toUtf8(toUtf8(text)), toUtf8(text));
    }
}

}  // namespace
}  // namespace tul
