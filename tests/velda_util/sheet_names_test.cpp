#include "velda_util/export/sheet_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;

std::vector<std::string> Names(const std::vector<std::string>& titles) { return SheetNames(titles); }

std::string Repeated(const std::string& text, int count) {
    std::string repeated;
    while (count-- > 0) repeated += text;
    return repeated;
}

TEST(SheetNames, KeepTitlesThatAreAllowed) {
    EXPECT_THAT(Names({"Thickness", "부재 두께", "a'b"}), ElementsAre("Thickness", "부재 두께", "a'b"));
}

TEST(SheetNames, ReplaceWhatMayNotStand) {
    EXPECT_THAT(Names({"[a]:*?/\\", "'quoted'", "", "a\tb", "'"}),
                ElementsAre("_a______", "_quoted_", "_", "a_b", "_ (2)"));
}

TEST(SheetNames, ReplaceBytesThatAreNoUtf8) { EXPECT_THAT(Names({"a\xFF"}), ElementsAre("a\xEF\xBF\xBD")); }

TEST(SheetNames, AreCutToThirtyOneCharactersAtAWholeOne) {
    EXPECT_THAT(Names({Repeated("가", 40)}), ElementsAre(Repeated("가", 31)));
    EXPECT_THAT(Names({Repeated("\xF0\x9F\x8F\xA0", 20)}), ElementsAre(Repeated("\xF0\x9F\x8F\xA0", 15)));
}

TEST(SheetNames, AreCutBeforeAnApostropheAtTheEndIsReplaced) {
    EXPECT_THAT(Names({std::string(30, 'a') + "'b"}), ElementsAre(std::string(30, 'a') + "_"));
}

TEST(SheetNames, StandOnceWithoutRegardToCase) {
    EXPECT_THAT(Names({"Wall", "WALL", "wall"}), ElementsAre("Wall", "WALL (2)", "wall (3)"));
    EXPECT_THAT(Names({"a", "a (2)", "A"}), ElementsAre("a", "a (2)", "A (3)"));
}

TEST(SheetNames, AreNumberedWithinTheirLength) {
    const std::string title(40, 'x');
    EXPECT_THAT(Names({title, title}), ElementsAre(std::string(31, 'x'), std::string(27, 'x') + " (2)"));
}

TEST(SheetNames, LeaveTheReservedNameAlone) { EXPECT_THAT(Names({"History"}), ElementsAre("History (2)")); }

}  // namespace
}  // namespace velda
