// The program as a package brings it, started by somebody who has set nothing up: below a prefix,
// without environment or privileges.
#include "support/ProgramFixture.h"

#include <unistd.h>

namespace
{
const bool isRoot = ::geteuid() == 0;

Finished runAsNobody(const QString &home, QStringList command)
{
    if (isRoot)
        command =
            QStringList{"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"} + command;
    QProcess process;
    process.setEnvironment({"HOME=" + home, "PATH=/usr/bin:/bin"}); // no more than that
    process.start(command.takeFirst(), command);
    return ProgramFixture::finish(process);
}

/// Presses "Save Theme" in the program's window until the file is there.
const QString pressSave = R"(
    "$0" --screen 320x568 &
    until [ -e "$1" ]; do
        xdotool search --sync --onlyvisible --name '^Tintloom$' mousemove --window %1 160 543 click 1
        sleep 0.2
    done
    kill $!)";
} // namespace

TEST(InstallationTest, AnOrdinaryUserSavesInstallsAndEdits)
{
    const QTemporaryDir folder;
    const QString prefix = folder.filePath("prefix"), home = folder.filePath("home");
    const QString program = prefix + "/bin/tintloom", link = folder.filePath("a link");
    QProcess cmake;
    cmake.start("cmake",
                {"--install", QFileInfo(TINTLOOM_EXECUTABLE).path() + "/..", "--prefix", prefix});
    ASSERT_EQ(ProgramFixture::finish(cmake).exitCode, 0);
    ASSERT_TRUE(QFile::link(program, link));
    put(home + "/.config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    ASSERT_FALSE(NSFileManager::setPosixPermissions(folder.path(), 0755));
    ASSERT_EQ(isRoot ? ::chown(QFile::encodeName(home), 65534, 65534) : 0, 0);

    const QString theme = home + "/Dokumente/biteThemes/Tintloom";
    const QString workingCopy = home + "/.local/share/Tintloom/Tintloom/Info.plist";
    // It finds its data where it has been moved to, through a link, and by the shell's PATH.
    const QStringList ways[] = {
        {program, "save"},
        {link, "install", "Sea Mist"},
        {"sh", "-c", "PATH=$0:$PATH; tintloom edit Midnight", prefix + "/bin"},
        {"timeout", "50", "xvfb-run", "--auto-servernum", "--server-args=-screen 0 1024x768x24",
         "sh", "-c", pressSave, program, workingCopy},
    };
    for (const QStringList &way : ways) {
        NSFileManager::removeItemAtPath(theme);
        NSFileManager::removeItemAtPath(workingCopy);
        const Finished ended = runAsNobody(home, way);
        EXPECT_TRUE(ended.exitCode == 0 && !ended.err.contains("Error")) << ended.err.toStdString();
        EXPECT_EQ(tree(theme), (QStringList{"Info.plist", "ListBackground@2x.jpg", "UIKit",
                                            "UIKit/UnreadIndicator@2x.png"}))
            << way.join(' ').toStdString();
    }

    // What archives need is loaded from there as well, and only then.
    const QStringList exporting{program, "export", "Midnight", home + "/midnight.zip"};
    const Finished exported = runAsNobody(home, exporting);
    EXPECT_EQ(exported.exitCode, 0) << exported.err.toStdString();
    for (const char *library : {"libarchive.so", "libqrcodegencpp.so"})
        EXPECT_FALSE(contents(program).contains(library)) << library << " slows every start";
    ASSERT_FALSE(NSFileManager::removeItemAtPath(prefix + "/lib/tintloom"));
    const Finished without = runAsNobody(home, exporting + QStringList("--replace"));
    EXPECT_EQ(without.exitCode, 1);
    EXPECT_TRUE(without.err.contains("tintloom_archives.so")) << without.err.toStdString();
    EXPECT_EQ(runAsNobody(home, {program, "share", "Midnight"}).exitCode, 0);
}
