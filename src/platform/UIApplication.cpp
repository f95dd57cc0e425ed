#include "platform/UIApplication.h"

#include <QFont>
#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

namespace
{
const char *lastWords = "";

// Qt aborts with a core dump when it finds no display. What it says then comes through the message
// handler, which is the one place to leave more politely.
void leaveWithoutDisplay(QtMsgType type, const QMessageLogContext &, const QString &)
{
    if (type != QtFatalMsg)
        return;
    std::fprintf(stderr, "%s\n", lastWords);
    std::_Exit(UIApplication::noDisplay);
}
} // namespace

int UIApplicationMain(int &argc, char **argv,
                      const std::function<std::unique_ptr<UIApplicationDelegate>()> &makeDelegate,
                      const char *withoutDisplay)
{
    lastWords = withoutDisplay;
    const QtMessageHandler usual = qInstallMessageHandler(leaveWithoutDisplay);
    const QGuiApplication application(argc, argv);
    qInstallMessageHandler(usual);
    // Unhinted, text measures the same on every renderer and at every scale; and hinting is slow.
    QFont font;
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);

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
