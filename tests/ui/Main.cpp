#include "Geometry.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// No test finds the window where another one has left it.
struct NothingRemembered : testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& /*info*/) override { QFile::remove(qvm::ui::geometryFile()); }
};

} // namespace

int main(int argc, char** argv) {
    // Without a screen, in one style, and away from the settings of whoever runs the tests, and of other test programs.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("qvm7702-test"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new NothingRemembered);
    return RUN_ALL_TESTS();
}
