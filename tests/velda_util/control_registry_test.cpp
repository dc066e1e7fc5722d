#include "velda_util/controls/control_registry.h"

#include <gtest/gtest.h>

namespace velda {
namespace {

TEST(ControlRegistry, FindsControlsByNumberAndByPicture) {
    ControlRegistry controls;
    controls.Register(1, std::make_unique<CBitmapBtnEdit>("", ""));
    controls.Register(46, std::make_unique<CBitmapBtnEdit>("box", "<svg/>"));
    EXPECT_EQ(controls.Count(), 2u);
    EXPECT_EQ(controls.Find(0), nullptr);
    ASSERT_NE(controls.Find(46), nullptr);
    EXPECT_EQ(controls.Find(46)->PictureSvg(), "<svg/>");
    EXPECT_EQ(controls.FindPicture("box"), controls.Find(46));
    EXPECT_EQ(controls.FindPicture("pipe"), nullptr);
    EXPECT_EQ(controls.FindPicture(""), nullptr) << "the control without a picture";
    controls.Register(46, std::make_unique<CBitmapBtnEdit>("pipe", "<svg/>"));
    EXPECT_EQ(controls.Count(), 2u);
    EXPECT_EQ(controls.FindPicture("box"), nullptr);
}

TEST(ControlRegistry, GivesACellThePictureOfItsControl) {
    const CGXStyle picture = CBitmapBtnEdit("box", "<svg/>").CellStyle();
    EXPECT_EQ(picture.GetControl(), ControlKind::PictureButton);
    EXPECT_EQ(picture.GetPicture(), "box");
    EXPECT_FALSE(picture.IncludeValue()) << "the value is that of the cell";
    const CGXStyle plain = CBitmapBtnEdit("", "").CellStyle();
    EXPECT_FALSE(plain.IncludeControl());
    EXPECT_EQ(plain.GetHorizontalAlignment(), HorizontalAlignment::Left);
    EXPECT_EQ(CGXEditBtn().CellStyle().GetControl(), ControlKind::PushButton);
    EXPECT_EQ(CGXEditBtn().PictureName(), "");
    EXPECT_EQ(CGXEditBtn().PictureSvg(), "");
}

}  // namespace
}  // namespace velda
