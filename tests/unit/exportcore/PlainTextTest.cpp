// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PlainText.h"
#include <gtest/gtest.h>

using ExportCore::PlainText;

namespace {

TEST(PlainText, LeavesWordsOfEveryLanguageAlone) {
    for (const char* text :
         {"", "two  blanks", "C:\\a", "\xC3\xA9t\xC3\xA9", "\xE6\x98\xA0\xE7\x94\xBB", "\xF0\x9F\x8E\xAC"})
        EXPECT_EQ(PlainText::escaped(text), text);
}

TEST(PlainText, WritesControlCharactersOut) {
    EXPECT_EQ(PlainText::escaped("a\nb\tc\rd\x1b[2J\x7f"), "a\\nb\\tc\\rd\\x1b[2J\\x7f");
    EXPECT_EQ(PlainText::escaped(std::string("a\0b", 3)), "a\\x00b");
    EXPECT_EQ(PlainText::escaped("\xC2\x85\xC2\x9B"), "\\u{0085}\\u{009b}");
}

TEST(PlainText, WritesMarksOfDirectionAndLineOut) {
    EXPECT_EQ(PlainText::escaped("\xE2\x80\xAEgpj.mov"), "\\u{202e}gpj.mov");
    EXPECT_EQ(PlainText::escaped("\xE2\x80\xA8\xE2\x81\xA6\xD8\x9C\xEF\xBB\xBF"),
              "\\u{2028}\\u{2066}\\u{061c}\\u{feff}");
}

TEST(PlainText, WritesBytesThatAreNoTextOut) {
    EXPECT_EQ(PlainText::escaped("a\xff\xc3"), "a\\xff\\xc3");
    EXPECT_EQ(PlainText::escaped("\xc0\xaf"), "\\xc0\\xaf") << "an overlong slash";
    EXPECT_EQ(PlainText::escaped("\xed\xa0\x80"), "\\xed\\xa0\\x80") << "half of a pair";
}

} // namespace
