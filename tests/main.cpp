#include <QGuiApplication>

#include <gtest/gtest.h>

// For sanitized builds: Qt Quick keeps the pictures that it has decoded until the process ends, and
// libssh the key that it was trying when a login is given up. Their names stand only in stacks that
// are walked whole.
extern "C" const char *__asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

extern "C" const char *__lsan_default_suppressions()
{
    return "leak:QQuickPixmap::load\n"
           "leak:QSGRenderContext::textureForFactory\n"
           "leak:ssh_userauth_publickey_auto\n";
}

int main(int argc, char **argv)
{
    // Enough for a machine without a display; a caller that set them knows better.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
    QCoreApplication::setApplicationName("Tintloom"); // which temporary files bear
    const QGuiApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
