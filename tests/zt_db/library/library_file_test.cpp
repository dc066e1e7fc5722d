#include <filesystem>
#include <fstream>
#include <thread>

#include "zt_db/library/library.h"
#include "zt_db/library/matl_db.h"
#include "zt_db/library/steel_data_tool.h"
#include "zt_db/test_support.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kOwnSections =
    "zt-library,sections,1\n"
    "standard,shape,name,d1_mm,d2_mm,d3_mm,d4_mm,d5_mm,d6_mm,d7_mm,d8_mm,d9_mm,series,area_mm2,Iyy_mm4,Izz_mm4,J_mm4,"
    "mass_kg_per_m,figures,J_figures,deviates\n"
    "Own,H,\"BH 500,200\",500,200,9,14,,,,,,,,,,,,,,\n";
constexpr const char* kConcreteTitles =
    "code,grade,fck_N_per_mm2,fck_cube_N_per_mm2,E_N_per_mm2,poisson,thermal_per_C,density_kg_per_m3,fcm_N_per_mm2,"
    "ft_N_per_mm2,checked\n";

/// Files of a user; the library of the program comes back after each test.
class LibraryFile : public testing::Test {
protected:
    ~LibraryFile() override { Library::UseFiles({}); }

    /// Uses one file with these bytes, and gives what was wrong with it behind the name of the file.
    std::string Use(const std::string& bytes) {
        const std::string path = folder.File("own.csv");
        std::ofstream(path, std::ios::binary) << bytes;
        const std::vector<std::string> reasons = Library::UseFiles({path});
        if (reasons.empty()) return "";
        EXPECT_EQ(reasons.size(), 1u);
        EXPECT_EQ(reasons[0].substr(0, path.size()), path);
        return reasons[0].substr(path.size());
    }
    static std::string Concrete(const std::string& rows) {
        return "zt-library,materials_concrete,1\n" + std::string(kConcreteTitles) + rows;
    }

    TemporaryFolder folder;
};

TEST_F(LibraryFile, AddsItsRowsBehindThoseOfTheProgram) {
    EXPECT_EQ(Use(kOwnSections), "");
    T_SECT_SECTBASE_D base;
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty("Own", "BH 500,200", base));
    EXPECT_THAT(base.size, ElementsAre(500, 200, 9, 14, 0, 0, 0, 0, 0));
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty("BH 500,200", base));
    EXPECT_TRUE(CDB_SteelDataTool::GetSectionProperty("KS", "H-400x200x8x13", base));
}

TEST_F(LibraryFile, MayHaveItsColumnsInAnyOrderAndFurtherOnes) {
    EXPECT_EQ(
        Use("\xEF\xBB\xBFzt-library,rebar_spacings,1\r\nnote,spacing_mm,name\r\n\r\n\"a \"\"b\"\"\",333,@333\r\n"), "");
    EXPECT_EQ(Library::Current()->Rows<LibrarySpacing>().back().name, "@333");
    EXPECT_EQ(Library::Current()->Rows<LibrarySpacing>().back().spacing, 333.0);
}

TEST_F(LibraryFile, AddsGradesToACode) {
    EXPECT_EQ(Use(Concrete("KCI 2003,C33,33,,29000,0.2,1e-5,2400,,,\nOwn,C1,1,,1,,,1,,,\n")), "");
    EXPECT_EQ(CMatlDB::GetMatlConcreteFc("KCI 2003", "C33"), 33.0);
    std::string type;
    EXPECT_EQ(CMatlDB::GetMatlType("Own", type), 1);
}

TEST_F(LibraryFile, ThatIsWrongIsToldWithLineAndColumn) {
    const auto concrete = [&](const std::string& rows) { return Use(Concrete(rows)); };
    EXPECT_THAT(Use(""), HasSubstr(", line 0, column 1: The first line"));
    EXPECT_THAT(Use("code,grade\n"), HasSubstr(", line 1, column 1: The first line"));
    EXPECT_THAT(Use("zt-library,sections,x\n"), HasSubstr("line 1, column 1"));
    EXPECT_THAT(Use("zt-library,sections,2\n"), HasSubstr(", line 1, column 3: The file has version 2;"));
    EXPECT_THAT(Use("zt-library,doors,1\n"), HasSubstr(", line 1, column 2: There is no library of the kind doors"));
    EXPECT_THAT(Use("zt-library,sections,1\n"), HasSubstr(", line 1, column 1: The line with the column titles"));
    EXPECT_THAT(Use("zt-library,sections,1\nname\n"), HasSubstr(", line 2, column 1: The column standard is missing"));
    EXPECT_THAT(concrete("A,B,1\n"), HasSubstr(", line 3, column 4: The line has 3 values instead of 11"));
    EXPECT_THAT(concrete("A,B,1,,2,,,3,,,,x\n"), HasSubstr(", line 3, column 12: The line has 12 values"));
    EXPECT_THAT(concrete("A,B,1,,2,,,3,,,\nA,C,1,,2e,,,3,,,\n"), HasSubstr(", line 4, column 5: \"2e\" is not"));
    EXPECT_THAT(concrete("A,B,1,,nan,,,3,,,\n"), HasSubstr(", line 3, column 5: \"nan\""));
    EXPECT_THAT(concrete("A,B,1,,2,-0.1,,3,,,\n"), HasSubstr(", line 3, column 6: \"-0.1\""));
    EXPECT_THAT(concrete("A,B,0,,2,,,3,,,\n"), HasSubstr(", line 3, column 3: A number above 0"));
    EXPECT_THAT(concrete("A,B,1,,,,,3,,,\n"), HasSubstr(", line 3, column 5: A number above 0"));
    EXPECT_THAT(concrete("A, ,1,,2,,,3,,,\n"), HasSubstr(", line 3, column 2: A name is missing"));
    EXPECT_THAT(concrete("A,\"B,1,,2,,,3,,,\n"), HasSubstr(", line 3, column 2: A value begins with a double quote"));
    EXPECT_THAT(concrete("A,B,1,,2,,,3,,,\nA,B,1,,2,,,3,,,\n"), HasSubstr("line 4, column 1: A B is in the library"));
    EXPECT_THAT(concrete("KCI 2003,C24,1,,2,,,3,,,\n"), HasSubstr("KCI 2003 C24 is in the library already"));
    EXPECT_THAT(concrete("AIJ Steel,C1,1,,2,,,3,,,\n"), HasSubstr("AIJ Steel is a code for steel"));
    std::string sections = kOwnSections;
    sections.replace(sections.find("Own,H"), 5, "Own,Q");
    EXPECT_THAT(Use(sections), HasSubstr(", line 3, column 1: There is no section shape \"Q\""));
}

TEST_F(LibraryFile, ThatIsWrongLeavesTheRestWhole) {
    const std::size_t grades = Library::BuiltIn()->Rows<ConcreteGrade>().size();
    std::ofstream(folder.File("a.csv")) << Concrete("Own,C1,1,,2,,,3,,,\nOwn,C2,x,,2,,,3,,,\n");
    std::ofstream(folder.File("b.csv")) << kOwnSections;
    std::ofstream(folder.File("c.txt")) << "no library";
    const std::vector<std::string> reasons = Library::UseFolder(folder.Path());
    ASSERT_EQ(reasons.size(), 1u);
    EXPECT_THAT(reasons[0], HasSubstr("a.csv, line 4, column 3"));
    EXPECT_EQ(Library::Current()->Rows<ConcreteGrade>().size(), grades);
    T_SECT_SECTBASE_D base;
    EXPECT_TRUE(CDB_SteelDataTool::GetSectionProperty("Own", "BH 500,200", base));
}

TEST_F(LibraryFile, ThatCannotBeReadIsTold) {
    EXPECT_THAT(Library::UseFiles({folder.File("none.csv")}), ElementsAre(HasSubstr("none.csv cannot be read")));
    EXPECT_THAT(Library::UseFiles({folder.Path()}), ElementsAre(HasSubstr("cannot be read")));
    EXPECT_THAT(Library::UseFolder(folder.Path() / "none"), IsEmpty());
}

TEST_F(LibraryFile, CutAtAnyPlaceNeverHarmsTheProgram) {
    const std::string whole = Concrete("Own,C1,1,,2,,,3,,,\nOwn,\"C 2\",1,,2,,,3,,,ok\n");
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        (void)Use(whole.substr(0, size));
        EXPECT_GT(CMatlDB::GetMatlConcreteFc("KCI 2003", "C24"), 0.0);
    }
}

TEST_F(LibraryFile, GivenUpLeavesWhoReadsTheOldLibraryUndisturbed) {
    ASSERT_EQ(Use(kOwnSections), "");
    const auto held = Library::Current();
    Library::UseFiles({});
    EXPECT_EQ(held->Rows<LibrarySection>().back().standard, "Own");
    EXPECT_NE(Library::Current()->Rows<LibrarySection>().back().standard, "Own");
}

TEST_F(LibraryFile, MayBeExchangedWhileOthersRead) {
    const std::string path = folder.File("own.csv");
    std::ofstream(path) << kOwnSections;
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i) {
        readers.emplace_back([] {
            T_SECT_SECTBASE_D base;
            for (int j = 0; j < 500; ++j) {
                EXPECT_TRUE(CDB_SteelDataTool::GetSectionProperty("KS", "H-400x200x8x13", base));
            }
        });
    }
    for (int i = 0; i < 5; ++i) EXPECT_THAT(Library::UseFiles({path}), IsEmpty());
    for (std::thread& reader : readers) reader.join();
}

}  // namespace
}  // namespace zt
