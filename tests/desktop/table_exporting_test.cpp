#include "desktop/window/table_exporting.h"

#include <QFile>
#include <QTemporaryDir>

#include "desktop/example_grid.h"
#include "velda_base/host/headless_host.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

class TableExporting : public ::testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath("tables.csv");
    velda::HeadlessHost host;
    velda::UseHost use{host};
    ExampleGrid grid{5};
    bool stopped = false;
};

TEST_F(TableExporting, WritesTheTablesAndShowsProgress) {
    EXPECT_TRUE(ExportTables({{&grid, "Example"}}, path, stopped));
    EXPECT_FALSE(stopped);
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_LT(0, host.progress.steps);
    EXPECT_FALSE(host.progress.open);
}

TEST_F(TableExporting, LeavesNoFileWhenTheUserCancels) {
    host.progress.cancelAt = 1;
    EXPECT_FALSE(ExportTables({{&grid, "Example"}}, path, stopped));
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(QFile::exists(path));
}

}  // namespace
}  // namespace zt
