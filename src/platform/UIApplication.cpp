#include "platform/UIApplication.h"

#include <QGuiApplication>
#include <QImageReader>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <thread>

namespace
{
// Qt aborts with a core dump when it finds no display. Its last words come through the message
// handler, which is the one place to leave more politely.
void leaveWithoutDisplay(QtMsgType type, const QMessageLogContext &, const QString &)
{
    if (type != QtFatalMsg)
        return;
    std::fputs("tintloom: no display to open a window on; \"tintloom save\" works without one\n",
               stderr);
    std::_Exit(UIApplication::noDisplay);
}
} // namespace

int UIApplicationMain(int &argc, char **argv,
                      const std::function<std::unique_ptr<UIApplicationDelegate>()> &makeDelegate)
{
    // Finding the system's fonts and the image plugins takes a good part of a start, and needs
    // nothing else of it: two threads do it on the side.
    const std::jthread fonts([] { FcInit(); });
    const QtMessageHandler usual = qInstallMessageHandler(leaveWithoutDisplay);
    const QGuiApplication application(argc, argv);
    qInstallMessageHandler(usual);
    std::setlocale(LC_NUMERIC, "C"); // Qt sets the user's; libplist would then read 0.75 as 0

    const auto delegate = makeDelegate(); // dies before the application that its windows need
    const QObject whileItLives;
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &whileItLives,
                     [&delegate](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             delegate->applicationDidBecomeActive();
                         else if (state == Qt::ApplicationInactive)
                             delegate->applicationWillResignActive();
                     });
    if (!delegate->didFinishLaunchingWithOptions())
        return EXIT_FAILURE;
    const int status = QGuiApplication::exec();
    delegate->applicationWillTerminate();
    return status;
}
