#include "velda_util/clip/clipboard_text.h"

#include <array>
#include <chrono>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

namespace velda {
namespace {

TextBlock Read(std::string_view text) {
    TextBlock block;
    EXPECT_TRUE(ClipboardText::Read(text, block));
    return block;
}

std::string Write(const TextBlock& block, std::span<const ClipboardHeader> headers = {}) {
    std::string text;
    EXPECT_TRUE(ClipboardText::Write(block, headers, text));
    return text;
}

TEST(TextBlock, TellsRowsOfDifferentLength) {
    const TextBlock block{{"a", "", "c"}, {}, {"d"}};
    EXPECT_EQ(block.RowCount(), 3u);
    EXPECT_EQ(block.CellCount(), 5u);
    EXPECT_EQ(block.Width(), 3u);
    EXPECT_EQ(block.CellsInRow(1), 1u) << "a row without cells has an empty one";
    EXPECT_EQ(block.Cell(0, 2), "c");
    EXPECT_EQ(block.Cell(1, 0), "");
    EXPECT_EQ(block.Cell(2, 0), "d");
    EXPECT_FALSE(block.IsEmptyRow(0));
    EXPECT_TRUE(block.IsEmptyRow(1));
}

TEST(TextBlock, RefusesPlacesThatDoNotExist) {
    const TextBlock block{{"a", "b"}, {"c"}};
    EXPECT_THROW(block.Cell(2, 0), std::invalid_argument);
    EXPECT_THROW(block.Cell(1, 1), std::invalid_argument);
    EXPECT_THROW(block.CellsInRow(2), std::invalid_argument);
    EXPECT_THROW(block.IsEmptyRow(2), std::invalid_argument);
}

TEST(ClipboardText, ReadsRowsEndedEitherWay) {
    const TextBlock expected{{"1", "W200"}, {"2", "W250"}};
    EXPECT_EQ(Read("1\tW200\n2\tW250\n"), expected);
    EXPECT_EQ(Read("1\tW200\r\n2\tW250\r\n"), expected);
    EXPECT_EQ(Read("1\tW200\n2\tW250"), expected);
    EXPECT_EQ(Read("1\tW200\r\n2\tW250"), expected);
}

TEST(ClipboardText, ReadsEmptyCellsAndRows) {
    EXPECT_EQ(Read(""), TextBlock{});
    EXPECT_EQ(Read("\n"), (TextBlock{{""}}));
    EXPECT_EQ(Read("\n\n"), (TextBlock{{""}, {""}}));
    EXPECT_EQ(Read("\t"), (TextBlock{{"", ""}}));
    EXPECT_EQ(Read("a\t\n\tb"), (TextBlock{{"a", ""}, {"", "b"}}));
    EXPECT_EQ(Read("a\n\nb\n"), (TextBlock{{"a"}, {""}, {"b"}}));
}

TEST(ClipboardText, ReadsRaggedRows) {
    EXPECT_EQ(Read("a\tb\tc\nd\ne\tf\n"), (TextBlock{{"a", "b", "c"}, {"d"}, {"e", "f"}}));
}

TEST(ClipboardText, ReadsQuotedCells) {
    EXPECT_EQ(Read("\"a\tb\"\tc\n"), (TextBlock{{"a\tb", "c"}}));
    EXPECT_EQ(Read("\"a\nb\"\n\"c\r\nd\"\r\n"), (TextBlock{{"a\nb"}, {"c\r\nd"}}));
    EXPECT_EQ(Read("\"5\"\" pipe\""), (TextBlock{{"5\" pipe"}}));
    EXPECT_EQ(Read("\"\"\t\"\"\"\""), (TextBlock{{"", "\""}}));
}

TEST(ClipboardText, TakesAQuoteThatClosesNoCellAsText) {
    EXPECT_EQ(Read("5\"\t6\"\n"), (TextBlock{{"5\"", "6\""}}));
    EXPECT_EQ(Read("\"open\tb\nc"), (TextBlock{{"\"open", "b"}, {"c"}}));
    EXPECT_EQ(Read("\"a\"b\tc"), (TextBlock{{"\"a\"b", "c"}}));
    EXPECT_EQ(Read("\""), (TextBlock{{"\""}}));
    EXPECT_EQ(Read("\"a\"\rb"), (TextBlock{{"\"a\"\rb"}}));
}

TEST(ClipboardText, ReadsManyOpenQuotesQuickly) {
    const auto start = std::chrono::steady_clock::now();
    std::string text;
    for (int i = 0; i < 300'000; ++i) text += i % 2 == 0 ? "\"x\t" : "\"\"y\"\"\t";
    EXPECT_EQ(Read(text).CellsInRow(0), 300'001u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(ClipboardText, ReadsAFormulaAsItStands) {
    EXPECT_EQ(Read("=2*3.2+0.15\t=sqrt(2)*400\n").Cell(0, 0), "=2*3.2+0.15");
}

TEST(ClipboardText, ReplacesANulAndBadBytes) {
    EXPECT_EQ(Read(std::string_view("a\0b\t\xFFz\n", 7)), (TextBlock{{"a\uFFFDb", "\uFFFDz"}}));
    EXPECT_EQ(Write(TextBlock{{std::string_view("a\0b", 3), "\xED\xA0\x80"}}), "a\uFFFDb\t\uFFFD\uFFFD\uFFFD\n");
}

TEST(ClipboardText, WritesCellsBehindTabs) {
    EXPECT_EQ(Write(TextBlock{}), "");
    EXPECT_EQ(Write(TextBlock{{"a", "b"}, {"두께"}}), "a\tb\n두께\n");
}

TEST(ClipboardText, QuotesOnlyWhatNeedsIt) {
    EXPECT_EQ(Write(TextBlock{{"a\tb", "c\nd", "e\rf", "5\"", "g, h;"}}),
              "\"a\tb\"\t\"c\nd\"\t\"e\rf\"\t\"5\"\"\"\tg, h;\n");
}

TEST(ClipboardText, WritesHeadersWithUnits) {
    const std::array<ClipboardHeader, 3> headers{{{"No."}, {"Name \"x\""}, {"Thickness", "m"}}};
    EXPECT_EQ(Write(TextBlock{{"1", "W200", "0.2"}}, headers),
              "No.\t\"Name \"\"x\"\"\"\tThickness (m)\n1\tW200\t0.2\n");
}

TEST(ClipboardText, RefusesWhatPassesTheLimitsAndChangesNothing) {
    TextBlock block{{"old"}};
    std::string text = "old";
    EXPECT_TRUE(ClipboardText::Read("a\tb\nc\n", block, {.cells = 3}));
    const Outcome cells = ClipboardText::Read("a\tb\nc\td\n", block, {.cells = 3});
    EXPECT_FALSE(cells);
    EXPECT_EQ(cells.Reason(), "The clipboard would hold more than 3 cells.");
    EXPECT_FALSE(ClipboardText::Read("a\tb\tc\t", block, {.cells = 3})) << "the empty cell at the end counts";
    const Outcome bytes = ClipboardText::Read("a\tb\tc", block, {.bytes = 4});
    EXPECT_EQ(bytes.Reason(), "The clipboard text would be longer than 0 MB.");
    EXPECT_EQ(block, (TextBlock{{"a", "b"}, {"c"}}));
    EXPECT_FALSE(ClipboardText::Write(block, text, {.cells = 2}));
    EXPECT_FALSE(ClipboardText::Write(block, text, {.bytes = 5}));
    EXPECT_EQ(text, "old");
    EXPECT_TRUE(ClipboardText::Write(block, text, {.cells = 3, .bytes = 6}));
    EXPECT_EQ(text, "a\tb\nc\n");
}

TEST(ClipboardText, CountsTenMillionCellsAsTheLimit) {
    const std::string text(10'000'000, '\n');
    TextBlock block;
    EXPECT_TRUE(ClipboardText::Read(text, block));
    EXPECT_EQ(block.RowCount(), 10'000'000u);
    EXPECT_FALSE(ClipboardText::Read(text + "\n", block));
}

TextBlock RandomBlock(std::mt19937& random) {
    constexpr std::array<std::string_view, 9> kPieces{"\t", "\n", "\r", "\r\n", "\"", "a", "벽", "=1+2", ""};
    TextBlock block;
    for (auto rows = random() % 5; rows > 0; --rows) {
        for (auto cells = 1 + random() % 4; cells > 0; --cells) {
            for (auto pieces = random() % 5; pieces > 0; --pieces)
                block.AppendToCell(kPieces[random() % kPieces.size()]);
            block.EndCell();
        }
        block.EndRow();
    }
    return block;
}

TEST(ClipboardText, ReadsBackWhatItWrote) {
    std::mt19937 random(42);
    for (int round = 0; round < 20'000; ++round) {
        const TextBlock block = RandomBlock(random);
        ASSERT_EQ(Read(Write(block)), block) << Write(block);
    }
}

TEST(ClipboardText, ReadsAnythingWithoutFailing) {
    constexpr std::array<char, 8> kBytes{'\t', '\n', '\r', '"', 'a', '\0', '\xFF', '\xC3'};
    std::mt19937 random(43);
    for (int round = 0; round < 20'000; ++round) {
        std::string text(random() % 12, ' ');
        for (char& c : text) c = kBytes[random() % kBytes.size()];
        const TextBlock block = Read(text);
        ASSERT_EQ(Read(Write(block)), block) << text;
    }
}

TEST(ClipboardText, CarriesAHundredThousandRowsQuickly) {
    TextBlock block;
    for (int row = 0; row < 100'000; ++row) {
        for (int column = 0; column < 9; ++column) block.AddCell(std::to_string(row * 9 + column));
        block.EndRow();
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Read(Write(block)), block);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

}  // namespace
}  // namespace velda
