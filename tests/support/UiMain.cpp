// The main function of the window's tests. Widgets need an application, but no screen.

#include "resources/Resources.h"
#include "ui/EdgeStyle.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
// The desktop's libraries keep some memory until the process ends. We cannot free it.
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
    orvana::useEdgeStyle();
    return RUN_ALL_TESTS();
}
