#include <QApplication>

#include <gtest/gtest.h>

// Runs the tests of the desktop without a screen, unless a platform is chosen.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
