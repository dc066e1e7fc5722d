#include "zt_db/exchange/library_lookup.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

T_SECT_D Profile(const std::string& name, double area = 0.0) {
    T_SECT_D section{.name = name, .kind = 3};
    section.base.sectName = name;
    section.stiffness.area = area;
    return section;
}

TEST(LibraryLookup, CompletesAProfileByItsNameWhateverItsCaseAndBlanks) {
    for (const char* name : {"IPE270", "ipe 270", "IPE 270"}) {
        T_SECT_D section = Profile(name);
        ASSERT_TRUE(CompleteFromLibrary(section)) << name;
        EXPECT_EQ(section.kind, 1);
        EXPECT_EQ(section.base.sectName, "IPE270");
        EXPECT_EQ(section.base.dbName, "EN");
        EXPECT_NEAR(section.base.size[0], 0.270, 1e-9);
        EXPECT_NEAR(section.stiffness.area, 45.9e-4, 0.5e-4);
        EXPECT_GT(section.design.wpy, 0.0);
    }
}

TEST(LibraryLookup, LeavesAProfileWhoseAreaIsAnotherOne) {
    T_SECT_D section = Profile("IPE270", 0.01);
    const T_SECT_D before = section;
    EXPECT_FALSE(CompleteFromLibrary(section));
    EXPECT_EQ(section, before);
}

TEST(LibraryLookup, KeepsTheValuesThatTheFileGives) {
    T_SECT_D section = Profile("IPE270", 46e-4);
    ASSERT_TRUE(CompleteFromLibrary(section));
    EXPECT_EQ(section.stiffness.area, 46e-4);
    EXPECT_GT(section.stiffness.asz, 0.0);
}

TEST(LibraryLookup, ComputesAShapeFromItsSizesAndKnowsNothingOfOthers) {
    T_SECT_D section{.kind = 1, .shape = "Solid Rectangle"};
    section.base.size = {0.5, 0.3};
    ASSERT_TRUE(CompleteFromLibrary(section));
    EXPECT_NEAR(section.stiffness.area, 0.15, 1e-12);
    T_SECT_D unknown = Profile("no such profile");
    EXPECT_FALSE(CompleteFromLibrary(unknown));
    T_SECT_D noSizes{.kind = 1, .shape = "Solid Rectangle"};
    EXPECT_FALSE(CompleteFromLibrary(noSizes));
}

}  // namespace
}  // namespace zt
