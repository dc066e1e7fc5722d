#include <QDir>
#include <QPlainTextEdit>
#include <QTimer>

#include "desktop/window/exchange_report_window.h"
#include "desktop/window_fixture.h"
#include "zt_db/records/pont.h"

namespace zt {
namespace {

class ExchangeTest : public WindowFixture {
protected:
    CDataBase& Db() { return *window->Document().GetMDBCtrl()->GetCurrentDB(); }
    int Nodes() { return Db().GetClass<CClassPont>()->GetCount(); }
    /// Closes the next report and keeps its text.
    void CloseReport() {
        QTimer::singleShot(0, window.get(), [this] {
            auto* shown = qobject_cast<ExchangeReportWindow*>(QApplication::activeModalWidget());
            if (!shown) return;
            report = shown->Text().toPlainText();
            shown->accept();
        });
    }

    QString report;
};

TEST_F(ExchangeTest, ImportsAFolderAsOneStep) {
    const int before = Nodes();
    const std::size_t steps = Db().GetUndoNames().size();
    CloseReport();
    ASSERT_TRUE(window->ImportFrom(QStringLiteral(ZT_SOURCE_DIR "/samples/steel_frame_3_storeys")));
    EXPECT_EQ(Nodes(), before + 20);
    EXPECT_EQ(Db().GetUndoNames().size(), steps + 1);
    EXPECT_TRUE(report.contains(QLatin1String("nodes: 20 read, 20 kept"))) << report.toStdString();
    window->Undo();
    EXPECT_EQ(Nodes(), before);
}

TEST_F(ExchangeTest, TellsWhyNothingWasImportedAndLeavesTheModel) {
    const int before = Nodes();
    CloseReport();
    EXPECT_FALSE(window->ImportFrom(folder.filePath("missing.xlsx")));
    EXPECT_EQ(Nodes(), before);
    EXPECT_TRUE(report.contains(QLatin1String("missing.xlsx"))) << report.toStdString();
}

TEST_F(ExchangeTest, WritesTheModelAsAWorkbookOrAsAFolder) {
    for (const QString& name : {folder.filePath("model.xlsx"), folder.filePath("tables")}) {
        CloseReport();
        ASSERT_TRUE(window->ExportModelTo(name)) << name.toStdString();
        EXPECT_TRUE(QFileInfo::exists(name));
        const int before = Nodes();
        // A model that was imported is in no file.
        host.messages.answers = {velda::MessageAnswer::No};
        window->NewModel();
        ASSERT_EQ(Nodes(), 0);
        CloseReport();
        ASSERT_TRUE(window->ImportFrom(name));
        EXPECT_EQ(Nodes(), before);
    }
    EXPECT_TRUE(QFileInfo::exists(QDir(folder.filePath("tables")).filePath("nodes.csv")));
}

}  // namespace
}  // namespace zt
