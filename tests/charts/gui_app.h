#pragma once
#include <QGuiApplication>

namespace tesorel::testing
{

// The one application object of the test program (fonts need it); inline
// so that every file of the suite shares it.
inline QGuiApplication &guiApp()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "test_charts";
    static char *argv[] = {name, nullptr};
    static QGuiApplication app(argc, argv);
    return app;
}

} // namespace tesorel::testing
