// The test program's own main: the widgets need an application, and no screen.

#include "resources/Resources.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
// What the desktop's libraries keep until the process ends is not ours to free.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libQt6Gui\nleak:libQt6Widgets\nleak:libQt6Core\nleak:libglib\n";
}
#endif

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir runtimeFolder;
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    orvana::loadResources();
    QApplication::setStyle(QStringLiteral("fusion")); // the same on every machine
    return RUN_ALL_TESTS();
}
