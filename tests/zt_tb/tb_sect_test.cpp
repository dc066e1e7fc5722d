#include "zt_tb/model/tb_sect.h"

#include <set>

#include "velda_lib/language.h"
#include "zt_db/library/sect_util.h"
#include "zt_tb/model/section_pictures.h"
#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

T_SECT_D Section(int kind, const std::string& shape, const std::string& dbName = {}) {
    T_SECT_D section{.kind = kind, .shape = shape};
    section.base.dbName = dbName;
    return section;
}

TEST(SectionPictures, ExistForAllControlsButThePlainOne) {
    std::set<std::string> names;
    int control = 0;
    for (const SectionPicture& picture : SectionPictures()) {
        EXPECT_EQ(picture.control, ++control);
        names.insert(picture.name);
        if (control == CTBSect::kPlainCell) {
            EXPECT_EQ(picture.svg, "");
            continue;
        }
        EXPECT_TRUE(picture.svg.starts_with("<svg ")) << picture.name;
        EXPECT_NE(picture.svg.find("<path d=\"M"), std::string::npos) << picture.name;
        EXPECT_EQ(picture.svg.find("nan"), std::string::npos) << picture.name;
    }
    EXPECT_EQ(control, 55);
    EXPECT_EQ(names.size(), 55u);
}

TEST(SectionPictures, StandInFamilies) {
    const auto family = [](int control) {
        const std::string& name = SectionPictures()[static_cast<std::size_t>(control - 1)].name;
        return name.substr(0, name.find('/'));
    };
    for (int control = 2; control <= 15; ++control) EXPECT_EQ(family(control), "combined");
    for (int control = 16; control <= 25; ++control) EXPECT_EQ(family(control), "icon");
    for (int control = 26; control <= 31; ++control) EXPECT_EQ(family(control), "plain");
    for (int control = 32; control <= 43; ++control) EXPECT_EQ(family(control), "composite");
    for (int control = 44; control <= 55; ++control) EXPECT_EQ(family(control), "regular");
}

TEST(SectionPictures, ShowConcreteLighterThanSteel) {
    for (const SectionPicture& picture : SectionPictures()) {
        const bool isComposite = picture.name.starts_with("composite/");
        EXPECT_EQ(picture.svg.find("fill-opacity") != std::string::npos, isComposite) << picture.name;
    }
}

TEST(ShapeControl, OfARegularShapeGoesByTheTableOfIndexes) {
    std::vector<std::string> shapes;
    CSectUtil::GetRegShapeNameList(shapes);
    std::vector<int> controls;
    for (const std::string& shape : shapes) {
        const int control = CTBSect::ShapeControlOf(Section(1, shape));
        EXPECT_EQ(CTBSect::ShapeControlOf(Section(1, shape, "KS")), control) << shape;
        EXPECT_EQ(CTBSect::ShapeControlOf(Section(3, shape)), control) << shape;
        EXPECT_EQ(CTBSect::ShapeControlOf(Section(5, shape)), control) << shape;
        controls.push_back(control);
    }
    EXPECT_THAT(controls, ElementsAre(51, 49, 46, 50, 47, 48, 53, 54, 44, 45, 52, 55));
}

TEST(ShapeControl, OfCompositeAndCombinedShapesCountsOnFromTheFirst) {
    std::vector<std::string> shapes;
    CSectUtil::GetSrcShapeNameList(shapes);
    ASSERT_EQ(shapes.size(), 12u);
    int control = 32;
    for (const std::string& shape : shapes) EXPECT_EQ(CTBSect::ShapeControlOf(Section(2, shape)), control++);
    CSectUtil::GetComShapeNameList(shapes);
    ASSERT_EQ(shapes.size(), 14u);
    control = 2;
    for (const std::string& shape : shapes) EXPECT_EQ(CTBSect::ShapeControlOf(Section(4, shape)), control++);
}

TEST(ShapeControl, OfAnUnknownShapeOrKindIsThePlainCell) {
    for (const int kind : {1, 2, 3, 4, 5}) EXPECT_EQ(CTBSect::ShapeControlOf(Section(kind, "hexagon")), 1) << kind;
    for (const int kind : {-1, 0, 6, 7}) EXPECT_EQ(CTBSect::ShapeControlOf(Section(kind, "H")), 1) << kind;
    EXPECT_EQ(CTBSect::ShapeControlOf(Section(2, "H")), 1);
    EXPECT_EQ(RegularPictureControl(-1), 0);
    EXPECT_EQ(RegularPictureControl(12), 0);
}

class TBSectTest : public TableTest {
protected:
    TBSectTest() {
        for (const std::uint32_t key : {5u, 2u, 9u}) AddNamed<CClassSect>(key, "S" + std::to_string(key));
        view_ = std::make_unique<OneTableView<CTBSect>>(*doc);
    }
    CTBSect& Table() { return *view_->table; }
    std::unique_ptr<OneTableView<CTBSect>> view_;
};

TEST_F(TBSectTest, KnowsTheControlsOfAllPictures) {
    EXPECT_EQ(Table().Controls().Count(), 55u);
    for (const SectionPicture& picture : SectionPictures()) {
        const velda::CGXEditBtn* control = Table().Controls().Find(picture.control);
        ASSERT_NE(control, nullptr) << picture.control;
        EXPECT_EQ(control->PictureName(), picture.name);
        EXPECT_EQ(control->PictureSvg(), picture.svg);
    }
}

TEST_F(TBSectTest, ShowsOfGivenKeysThoseThatAreSections) {
    Table().PreFilterRecord({9, 77, 2});
    EXPECT_THAT(Table().ShownKeys(), ElementsAre(2u, 9u));
    Table().PreFilterRecord({});
    EXPECT_THAT(Table().ShownKeys(), ElementsAre());
}

TEST_F(TBSectTest, ChecksNumbersInTheColumnsOfValues) {
    std::vector<int> free;
    for (int id = 0; id < Table().GetInitialColCount(); ++id) {
        if (Table().ValidateColumn("x", id)) free.push_back(id);
    }
    EXPECT_THAT(free, ElementsAre(1, 2, 3, 4));
    EXPECT_FALSE(Table().ValidateColumn("1", 23));
}

TEST_F(TBSectTest, TakesNoNewRows) {
    EXPECT_FALSE(Table().IsAppendRowEnabled());
    EXPECT_FALSE(Table().CanInsertRowByPressingKey());
    EXPECT_THAT(Table().SortInfo(), ElementsAre(velda::STBSortItem{0, 0, 0}));
}

TEST(TBSectMaterialKind, IsWordedByItsNumber) {
    velda::SetCurrentLanguage(velda::Language::English);
    EXPECT_EQ("RC", CTBSect::MaterialKindText(1));
    EXPECT_EQ("Steel", CTBSect::MaterialKindText(2));
    EXPECT_EQ("SRC", CTBSect::MaterialKindText(3));
    for (const int other : {-1, 0, 4, 6, 7}) EXPECT_EQ("", CTBSect::MaterialKindText(other)) << other;
}

}  // namespace
}  // namespace zt
