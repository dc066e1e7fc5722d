#include "support/view_fixture.h"
#include "zt_tb/core/tb_print_preview.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A table that writes down which pages of it are drawn.
class PrintedThik : public HookedThik {
public:
    void OnGridBeginPrinting(velda::PrintJob& job) override {
        HookedThik::OnGridBeginPrinting(job);
        job.pages = 3;
    }
    void OnGridPrepareDC(int page) override { calls.push_back("prepare " + std::to_string(page)); }
    void OnPrint(int page) override { calls.push_back("print " + std::to_string(page)); }

    std::vector<std::string> calls;
};

class ViewPrintingTest : public TBViewTest {
protected:
    void TearDown() override {
        CTBPrintPreview::m_Margins = {};
        TBViewTest::TearDown();
    }
    PrintedThik& AddPrinted(const std::string& title) {
        auto table = std::make_unique<PrintedThik>();
        table->Initialize(static_cast<CTBView*>(nullptr));
        table->MakeItemEx(nullptr, -2, 0);
        PrintedThik& added = *table;
        view.AddWorksheet(std::move(table), title);
        return added;
    }
    static double FontSize(const velda::CTBGrid& table) { return table.Styles().StandardStyle().GetFontSize(); }
};

TEST_F(ViewPrintingTest, EachPageIsPreparedAndThenDrawn) {
    PrintedThik& table = AddPrinted("A");
    EXPECT_TRUE(view.Print(false));
    EXPECT_THAT(table.calls, ElementsAre("prepare 1", "print 1", "prepare 2", "print 2", "prepare 3", "print 3"));
}

TEST_F(ViewPrintingTest, TheMarginsOfThePaperGoToTheirSides) {
    HookedThik& table = AddTable();
    CTBPrintPreview::m_Margins = {.left = 1.0, .top = 2.0, .right = 3.0, .bottom = 4.0};
    velda::PrintMargins printed;
    host.printer.whilePrinting = [&] { printed = table.GetMargins(); };
    EXPECT_TRUE(view.Print(false));
    EXPECT_EQ(printed, (velda::PrintMargins{.left = 3, .top = 6, .right = 9, .bottom = 11})) << "in points";
}

TEST_F(ViewPrintingTest, TheScreenShowsTheTableAtItsOwnSizeWhileItIsPrinted) {
    struct SizeHost : velda::GridHost {
        void OnRedraw() override { seen = FontSize(*table); }
        const velda::CTBGrid* table = nullptr;
        double seen = 0.0;
    };
    SizeHost screen;
    HookedThik& table = AddTable();
    screen.table = &table;
    table.SetHost(&screen);
    const double size = FontSize(table);
    host.printer.whilePrinting = [&] {
        view.OnDraw(false);
        EXPECT_EQ(screen.seen, size);
        EXPECT_EQ(FontSize(table), CTBPrintPreview::m_nPrintFontSize);
    };
    EXPECT_TRUE(view.Print(false));
    table.SetHost(nullptr);
}

TEST_F(ViewPrintingTest, ATableIsPrintedToItsEndThoughAnotherOneComesToTheFront) {
    view.BuildWorkbook();
    PrintedThik& table = AddPrinted("A");
    PrintedThik& other = AddPrinted("B");
    const double size = FontSize(table);
    host.printer.whilePrinting = [&] { view.SetCurrentTab(1); };
    EXPECT_TRUE(view.Print(false));
    EXPECT_EQ(table.calls.size(), 6u);
    EXPECT_THAT(other.calls, IsEmpty());
    EXPECT_EQ(FontSize(table), size);
    EXPECT_EQ(FontSize(other), size);
    EXPECT_FALSE(table.IsUpdateLocked());
    EXPECT_FALSE(other.IsUpdateLocked());
    EXPECT_EQ(table.PrintedPages(), nullptr);
}

TEST_F(ViewPrintingTest, ATableThatGoesWhileItIsPrintedIsForgotten) {
    view.BuildWorkbook();
    AddPrinted("A");
    PrintedThik& other = AddPrinted("B");
    host.printer.whilePrinting = [&] {
        if (view.GetTabCount() == 2) view.GetTabWnd()->RemoveTab(0);
    };
    EXPECT_TRUE(view.Print(false));
    EXPECT_THAT(other.calls, IsEmpty());
    const double size = FontSize(other);
    view.OnDraw(false);
    EXPECT_EQ(FontSize(other), size) << "nothing is printed any more";
    EXPECT_FALSE(other.IsUpdateLocked());
}

TEST_F(ViewPrintingTest, PrintingPutsFontAndMarginsInAndTakesThemBack) {
    HookedThik& table = AddTable();
    const double size = table.Styles().StandardStyle().GetFontSize();
    ASSERT_NE(size, CTBPrintPreview::m_nPrintFontSize);
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    CTBPrintPreview::GetMarginDPUnit(left, top, right, bottom);
    int seen = 0;
    host.printer.whilePrinting = [&] {
        ++seen;
        EXPECT_EQ(table.Styles().StandardStyle().GetFontSize(), CTBPrintPreview::m_nPrintFontSize);
        EXPECT_EQ(table.GetMargins(), (velda::PrintMargins{left, top, right, bottom}));
        EXPECT_TRUE(table.IsUpdateLocked());
        const auto redraws = table.RedrawCount();
        view.OnDraw(true);
        EXPECT_EQ(table.RedrawCount(), redraws) << "paper is no window";
        view.OnDraw(false);
        EXPECT_EQ(table.RedrawCount(), redraws + 1);
        EXPECT_TRUE(table.IsUpdateLocked());
        EXPECT_NE(table.PrintedPages(), nullptr);
    };
    EXPECT_TRUE(view.OnCommand(CommandId::FilePrintDirect));
    EXPECT_EQ(seen, 1);
    EXPECT_THAT(host.printer.pages, ElementsAre(1));
    EXPECT_EQ(table.Styles().StandardStyle().GetFontSize(), size);
    EXPECT_EQ(table.GetMargins(), velda::PrintMargins());
    EXPECT_FALSE(table.IsUpdateLocked());
    EXPECT_EQ(table.PrintedPages(), nullptr);
}

TEST_F(ViewPrintingTest, APreviewLeavesTheTableAsItIs) {
    HookedThik& table = AddTable();
    const double size = table.Styles().StandardStyle().GetFontSize();
    host.printer.whilePrinting = [&] {
        EXPECT_EQ(table.Styles().StandardStyle().GetFontSize(), size);
        EXPECT_FALSE(table.IsUpdateLocked());
    };
    EXPECT_TRUE(view.OnCommand(CommandId::FilePrintPreview));
    ASSERT_EQ(host.printer.jobs.size(), 1u);
    EXPECT_TRUE(host.printer.jobs[0].preview);
    EXPECT_GT(host.printer.jobs[0].margins.left, 0);
    EXPECT_EQ(host.printer.jobs[0].fontSize, CTBPrintPreview::m_nPrintFontSize);
}

TEST_F(ViewPrintingTest, APrintIsTitledByTheTabInFront) {
    view.BuildWorkbook();
    view.AddWorksheet(std::make_unique<PlainGrid>(), "Walls");
    EXPECT_TRUE(view.Print(true));
    ASSERT_EQ(host.printer.jobs.size(), 1u);
    EXPECT_EQ(host.printer.jobs[0].title, "Walls");
}

TEST_F(ViewPrintingTest, ACancelledPrintDoesNothing) {
    AddTable();
    host.printer.cancels = true;
    EXPECT_FALSE(view.Print(false));
    EXPECT_THAT(host.printer.jobs, IsEmpty());
}

}  // namespace
}  // namespace zt
