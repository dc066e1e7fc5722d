#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "desktop/safe_application.h"
#include <gtest/gtest.h>

// Runs the tests of the desktop without a screen, unless a platform is chosen.
int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    zt::SafeApplication application(count, arguments);
    // What the program keeps for its user is kept apart.
    QCoreApplication::setOrganizationName(QStringLiteral("velda-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("zt"));
    QStandardPaths::setTestModeEnabled(true);
    // Several of these programs run side by side.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
