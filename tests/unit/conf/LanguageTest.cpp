// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/Language.h"
#include <gtest/gtest.h>

using Kestra::Conf::Language;

TEST(Language, IsOneWhateverTheFormOfItsCode) {
    for (const char* german : {"de", "DE", "deu", "ger", "de-AT", "de_CH", "Ger "})
        EXPECT_EQ(Language::CodeOf(german), "deu") << german;
    EXPECT_TRUE(Language::AreSame("fre", "fr-CA"));
    EXPECT_FALSE(Language::AreSame("fre", "eng"));
    EXPECT_EQ(Language::CodeOf("qaa"), "qaa") << "three letters may be anybody's";
    EXPECT_EQ(Language::CodeOf("sve"), "swe") << "as a QuickTime file is read";
}

TEST(Language, IsNotWhatIsNoCode) {
    for (const char* none : {"", "und", "English", "e", "1", "xx", "-", "en glish", "ä", "12c"})
        EXPECT_EQ(Language::CodeOf(none), "") << none;
}

TEST(Language, HasTheCodeThatAContainerWants) {
    EXPECT_EQ(Language::BibliographicCode("deu"), "ger");
    EXPECT_EQ(Language::BibliographicCode("eng"), "eng");
    EXPECT_EQ(Language::QuickTimeName("deu"), "ger");
    EXPECT_EQ(Language::QuickTimeName("fra"), "fra");
    EXPECT_EQ(Language::QuickTimeName("swe"), "sve");
    EXPECT_EQ(Language::QuickTimeName("zul"), "") << "QuickTime has no number for it";
}
