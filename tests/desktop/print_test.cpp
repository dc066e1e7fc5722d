#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPrintPreviewDialog>
#include <QTemporaryDir>
#include <QTimer>

#include "desktop/example_grid.h"
#include "desktop/print/page_painter.h"
#include "desktop/print/pdf_file.h"
#include "desktop/print/qt_printer.h"
#include "zt_db/sample/sample_building.h"
#include "zt_tb/model/open_table.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

constexpr double kFontSize = 8.0;
constexpr int kDotsPerInch = 144;
constexpr double kDotsPerPoint = kDotsPerInch / 72.0;

/// Pages of an example table as pictures.
class PrintedPages : public ::testing::Test {
protected:
    velda::PrintSettings Settings() const { return {{}, {42, 42, 42, 42}, kFontSize, {"Title"}}; }
    QImage Picture(int number) {
        const velda::PrintLayout pages(grid, Settings());
        page = pages.Page(number);
        QImage picture(static_cast<int>(595 * kDotsPerPoint), static_cast<int>(842 * kDotsPerPoint),
                       QImage::Format_RGB32);
        picture.setDotsPerMeterX(qRound(kDotsPerInch / 0.0254));
        picture.setDotsPerMeterY(qRound(kDotsPerInch / 0.0254));
        picture.fill(Qt::white);
        QPainter painter(&picture);
        PagePainter(painter, grid, kFontSize).Paint(page);
        return picture;
    }
    static QRect Dots(double left, double top, double width, double height) {
        return QRectF(left * kDotsPerPoint, top * kDotsPerPoint, width * kDotsPerPoint, height * kDotsPerPoint)
            .toRect()
            .adjusted(3, 3, -3, -3);
    }
    /// A cell by its place on the page, from 0; the header is row 0.
    QRect Cell(std::size_t row, std::size_t col) const {
        return Dots(page.columns.at(col).at, page.rows.at(row).at, page.columns.at(col).size, page.rows.at(row).size);
    }
    template <class Condition>
    static int Count(const QImage& picture, const QRect& rect, Condition holds) {
        int count = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) count += holds(picture.pixelColor(x, y)) ? 1 : 0;
        }
        return count;
    }
    static int Dark(const QImage& picture, const QRect& rect) {
        return Count(picture, rect, [](const QColor& color) { return color.lightness() < 110; });
    }
    static bool IsRed(const QColor& color) { return color.red() > 150 && color.green() < 90 && color.blue() < 90; }

    ExampleGrid grid{150};
    velda::PrintedPage page;
};

TEST_F(PrintedPages, EveryPageHasTitleHeaderAndNumber) {
    for (const int number : {1, 2}) {
        const QImage picture = Picture(number);
        EXPECT_GT(Dark(picture, Dots(42, 42, 100, 12)), 20) << number;
        EXPECT_GT(Dark(picture, Cell(0, 1)), 20) << number;
        EXPECT_GT(Dark(picture, Dots(page.pageNumber.x, page.pageNumber.y, 40, 12)), 10) << number;
    }
}

TEST_F(PrintedPages, NumbersStandAtTheRightAndNamesAtTheLeft) {
    const QImage picture = Picture(1);
    const auto half = [&](std::size_t col, bool right) {
        QRect cell = Cell(2, col);
        if (right) cell.setLeft(cell.center().x());
        if (!right) cell.setRight(cell.center().x());
        return Dark(picture, cell);
    };
    EXPECT_GT(half(ExampleGrid::kMeasure - 1, true), half(ExampleGrid::kMeasure - 1, false));
    EXPECT_GT(half(ExampleGrid::kName - 1, false), half(ExampleGrid::kName - 1, true));
}

TEST_F(PrintedPages, ColoursOfCellsArePrinted) {
    grid.ApplyStyleNG(2, ExampleGrid::kName);
    grid.SetStyleRange(velda::CGXRange(3, ExampleGrid::kName), velda::CGXStyle().SetInterior(0x00FF80));
    const QImage picture = Picture(1);
    EXPECT_GT(Count(picture, Cell(2, ExampleGrid::kName - 1), &IsRed), 10);
    EXPECT_EQ(0, Count(picture, Cell(1, ExampleGrid::kName - 1), &IsRed));
    EXPECT_EQ(QColor(0x80, 0xFF, 0x00), picture.pixelColor(Cell(3, ExampleGrid::kName - 1).topLeft()));
}

TEST_F(PrintedPages, AMergedCellShowsOneText) {
    ASSERT_TRUE(grid.SetCoveredCellsRowCol(2, ExampleGrid::kName, 3, ExampleGrid::kMeasure));
    const QImage picture = Picture(1);
    EXPECT_EQ(0, Dark(picture, Cell(3, ExampleGrid::kMeasure - 1)));
    EXPECT_GT(Dark(picture, Cell(4, ExampleGrid::kMeasure - 1)), 10);
}

TEST_F(PrintedPages, ABoxThatIsCheckedHasATick) {
    const QImage empty = Picture(1);
    grid.SetDataRowCol(2, ExampleGrid::kCheck, 1);
    const QImage checked = Picture(1);
    const QRect box = Cell(2, ExampleGrid::kCheck - 1);
    EXPECT_GT(Dark(checked, box), Dark(empty, box) + 10);
}

TEST_F(PrintedPages, KoreanTextsAreAboutTwiceAsWide) {
    const double latin = PagePainter::TextWidth("ab", kFontSize, false);
    const double korean = PagePainter::TextWidth("두께", kFontSize, false);
    EXPECT_GT(korean, 1.3 * latin);
    EXPECT_NEAR(2 * latin, PagePainter::TextWidth("ab", 2 * kFontSize, false), 1e-6);
}

// ---- the printer

class Printing : public PrintedPages {
protected:
    /// Prints as a view does.
    bool Print(bool preview) {
        velda::PrintJob job;
        job.title = "Plates";
        job.preview = preview;
        job.fontSize = kFontSize;
        job.margins = {42, 42, 42, 42};
        grid.SetMargins(42, 42, 42, 42);
        if (!printer.Prepare(job)) return false;
        grid.OnGridBeginPrinting(job);
        pages = job.pages;
        printer.BeginJob(job);
        for (int number = 1; number <= job.pages && printer.BeginPage(number); ++number) grid.OnPrint(number);
        printer.EndJob();
        grid.OnGridEndPrinting();
        return true;
    }
    static QByteArray Bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    QString path = folder.filePath("plates.pdf");
    QtPrinter printer{[this] { return &grid; }};
    int pages = 0;
};

TEST_F(Printing, WritesAllPagesIntoAFile) {
    printer.PrintToFile(path);
    ASSERT_TRUE(Print(false));
    EXPECT_TRUE(printer.IsDone());
    EXPECT_GT(pages, 1);
    const QByteArray bytes = Bytes(path);
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_TRUE(bytes.contains("/Count " + QByteArray::number(pages)));
}

TEST_F(Printing, AFileThatCannotBeWrittenIsTold) {
    printer.PrintToFile(folder.filePath("missing/plates.pdf"));
    Print(false);
    EXPECT_FALSE(printer.IsDone());
}

TEST_F(Printing, WithoutATableNothingIsPrinted) {
    QtPrinter none([] { return nullptr; });
    velda::PrintJob job;
    EXPECT_FALSE(none.Prepare(job));
}

TEST_F(Printing, APreviewShowsThePagesAndWritesNothing) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        seen = dialog != nullptr;
        if (dialog) dialog->reject();
    });
    ASSERT_TRUE(Print(true));
    EXPECT_TRUE(seen);
    EXPECT_FALSE(QFile::exists(path));
}

class PdfFile : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), "office"));
        doc->MakeCurrent();
        view = OpenTable("THIK");
        ASSERT_NE(nullptr, view);
    }
    void TearDown() override {
        view.reset();
        CDBDoc::m_pDBDoc = nullptr;
    }

    QTemporaryDir folder;
    std::unique_ptr<CDBDoc> doc = CDBDoc::New();
    std::unique_ptr<CTBView> view;
};

TEST_F(PdfFile, HoldsATableOfAModel) {
    ASSERT_TRUE(WritePdf(*view, folder.filePath("thik.pdf").toStdString()));
    EXPECT_GT(QFile(folder.filePath("thik.pdf")).size(), 1000);
}

TEST_F(PdfFile, IsRefusedForAPlaceThatCannotBeWritten) {
    EXPECT_FALSE(WritePdf(*view, folder.filePath("missing/thik.pdf").toStdString()));
}

}  // namespace
}  // namespace zt
