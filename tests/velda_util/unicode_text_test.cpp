#include "velda_util/text/unicode_text.h"

#include <random>

#include <gtest/gtest.h>

namespace velda {
namespace {

TEST(CleanUtf8, LeavesGoodTextAlone) {
    for (const char* text : {"", "a\tb\n", "두께 µ²", "\U0001F600", "\uFFFD", "\x7F"}) {
        EXPECT_TRUE(IsCleanUtf8(text));
        EXPECT_EQ(CleanUtf8(text), text);
    }
}

TEST(CleanUtf8, ReplacesANul) {
    EXPECT_FALSE(IsCleanUtf8(std::string_view("a\0b", 3)));
    EXPECT_EQ(CleanUtf8(std::string_view("a\0b", 3)), "a\uFFFDb");
}

TEST(CleanUtf8, ReplacesEachByteOfNoSequence) {
    EXPECT_EQ(CleanUtf8("\x80z"), "\uFFFDz") << "continuation without a beginning";
    EXPECT_EQ(CleanUtf8("\xC3"), "\uFFFD") << "cut off";
    EXPECT_EQ(CleanUtf8("\xED\x95z"), "\uFFFD\uFFFDz") << "cut off by another character";
    EXPECT_EQ(CleanUtf8("\xC0\xAF"), "\uFFFD\uFFFD") << "overlong";
    EXPECT_EQ(CleanUtf8("\xE0\x80\xAF"), "\uFFFD\uFFFD\uFFFD") << "overlong";
    EXPECT_EQ(CleanUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD") << "surrogate";
    EXPECT_EQ(CleanUtf8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD") << "beyond the last character";
    EXPECT_EQ(CleanUtf8("\xFF\xFE"), "\uFFFD\uFFFD");
}

TEST(CleanUtf8, MakesRandomBytesCleanInOneStep) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 20, ' ');
        for (char& c : bytes) c = static_cast<char>(random());
        EXPECT_TRUE(IsCleanUtf8(CleanUtf8(bytes)));
    }
}

TEST(FoldCase, FoldsLatinGreekAndCyrillic) {
    EXPECT_EQ(FoldCase("Beam ÄÖÜ ŁÓDŹ Ÿ"), "beam äöü łódź ÿ");
    EXPECT_EQ(FoldCase("ΣΊΔΗΡΟΣ Ώ"), "σίδηροσ ώ");
    EXPECT_EQ(FoldCase("БАЛКА Ёж Ґ Ӂ"), "балка ёж ґ ӂ");
    EXPECT_EQ(FoldCase("Ｗ２００ ẞẠ"), "ｗ２００ ẞạ");
}

TEST(FoldCase, MakesFormsOfOneLetterEqual) {
    EXPECT_EQ(FoldCase("ς"), FoldCase("Σ"));
    EXPECT_EQ(FoldCase("\u00B5m"), FoldCase("\u03BCm")) << "micro sign and Greek letter";
}

TEST(FoldCase, LeavesOtherTextAlone) {
    for (const char* text : {"", "벽 두께", "×÷ß°²", "12.5e-3", "\xFF\xC3", "ıİſ\u212A"})
        EXPECT_EQ(FoldCase(text), text);
}

TEST(FoldCase, KeepsTheLengthOfEveryCharacterAndIsDoneAfterOneStep) {
    const auto length = [](char32_t c) { return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4; };
    int folded = 0;
    for (char32_t c = 1; c < 0x11000; ++c) {
        const char32_t small = FoldCase(c);
        EXPECT_EQ(length(small), length(c)) << static_cast<unsigned>(c);
        EXPECT_EQ(FoldCase(small), small) << static_cast<unsigned>(c);
        folded += small != c ? 1 : 0;
    }
    EXPECT_EQ(folded, 450);
}

TEST(FirstCharacterLength, CountsBytes) {
    EXPECT_EQ(FirstCharacterLength(""), 0u);
    EXPECT_EQ(FirstCharacterLength("ab"), 1u);
    EXPECT_EQ(FirstCharacterLength("Ωb"), 2u);
    EXPECT_EQ(FirstCharacterLength("벽b"), 3u);
    EXPECT_EQ(FirstCharacterLength("\xFF\xFF"), 1u);
}

}  // namespace
}  // namespace velda
