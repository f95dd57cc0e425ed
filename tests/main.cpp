#include <QGuiApplication>

#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    // Enough for a machine without a display; a caller that set them knows better.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // as the program itself does, for libplist
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
