#include "desktop/grid/cell_picture.h"

#include <QImage>

#include "zt_tb/model/section_pictures.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

constexpr int kSide = 16;

QImage Drawn(std::string_view svg, const QColor& ground, const QColor& ink) {
    QImage image(kSide, kSide, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    DrawCellPicture(painter, QRectF(0, 0, kSide, kSide), svg, ink);
    return image;
}

int CountOf(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

TEST(CellPicture, ShowsEveryShapeInTheInkThatIsAskedFor) {
    for (const SectionPicture& picture : SectionPictures()) {
        if (picture.svg.empty()) continue;
        for (const auto& [ground, ink] : {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
            const QImage image = Drawn(picture.svg, ground, ink);
            const int untouched = CountOf(image, ground);
            EXPECT_LT(untouched, kSide * kSide) << picture.name;
            EXPECT_GT(untouched, 0) << picture.name;
        }
    }
}

TEST(CellPicture, OfASolidSectionIsAllInk) {
    const std::string& svg = SectionPictures()[43].svg;
    EXPECT_EQ(Drawn(svg, Qt::white, Qt::red).pixelColor(kSide / 2, kSide / 2), QColor(Qt::red));
    EXPECT_EQ(Drawn(svg, Qt::white, Qt::blue).pixelColor(kSide / 2, kSide / 2), QColor(Qt::blue));
}

TEST(CellPicture, ThatCannotBeReadIsNotDrawn) {
    EXPECT_EQ(CountOf(Drawn("no picture", Qt::white, Qt::red), Qt::white), kSide * kSide);
    EXPECT_EQ(CountOf(Drawn("", Qt::white, Qt::red), Qt::white), kSide * kSide);
}

}  // namespace
}  // namespace zt
