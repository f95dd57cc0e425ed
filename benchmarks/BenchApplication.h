// The application object of benchmarks that draw: offscreen, software renderer. Made when the first
// of them runs.
#pragma once

#include <QGuiApplication>

inline void prepareBenchApplication()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    static int argc = 1;
    static char name[] = "tintloom_bench";
    static char *argv[] = {name, nullptr};
    // Never destroyed: pictures in caches live until the process ends.
    static const auto *application = new QGuiApplication(argc, argv);
    Q_UNUSED(application)
}
