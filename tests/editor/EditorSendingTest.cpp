#include "editor/EditorSending.h"

#include "delivery/window/SendController.h"
#include "support/EditorFixture.h"
#include "support/SshServer.h"

namespace
{
using Step = SendController::Step;

struct EditorSendingTest : EditorFixture {
    void SetUp() override
    {
        writeDocument(manyElements(3));
        start();
    }
    SendController &page()
    {
        return dynamic_cast<SendController &>(*window().presentedViewController());
    }
    void remember(const SshAddress &address, const QString &folder)
    {
        ASSERT_FALSE(
            RememberedPhones(folders().theme.documents).remember({"Mine", address, folder}));
    }
    void send()
    {
        tap(item("_moreButton"));
        const QStringList entries = window().actionSheet()->buttonTitles();
        window().actionSheet()->click(int(entries.indexOf("Send to Phone…")));
        settle();
        page().mainTapped();
        while (page().step() != Step::Result)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_FALSE(window().alert());
    }
};
} // namespace

TEST_F(EditorSendingTest, SavesWhatIsNotSavedAndBringsTheSameThemeToAServer)
{
    const SshServer server;
    if (!server.isRunning())
        GTEST_SKIP() << server.problem().toStdString();
    server.trust();
    remember({"127.0.0.1", server.port(), SshServer::user()}, server.themes());
    editor().document().setColor(1, "#123456FF");
    send();
    ASSERT_EQ(page().text(), "Tintloom is on the phone, in " + server.themes() + ".");
    EXPECT_FALSE(editor().document().hasUnsavedChanges());
    const ThemeLocations locations = folders().theme;
    for (const QString &path : tree(locations.packageFolder()))
        if (!QFileInfo(locations.packageFolder() + '/' + path).isDir()) {
            EXPECT_EQ(contents(server.themes() + "/Tintloom/" + path),
                      contents(locations.packageFolder() + '/' + path))
                << path.toStdString();
        }
    // What is saved already is not saved once more: the choices before it stay within reach.
    const QByteArray previous = contents(locations.workingCopyFolder() + "/Info.previous.plist");
    key(Qt::Key_Escape);
    send();
    EXPECT_EQ(contents(locations.workingCopyFolder() + "/Info.previous.plist"), previous);
}

TEST_F(EditorSendingTest, SendsNothingThatCannotBeSaved)
{
    remember({"127.0.0.1", freePort(), {}}, "/themes");
    editor().document().setColor(1, "#123456FF");
    {
        const FaultHookGuard guard(failing(NSFileManager::Operation::Write, "Info.plist"));
        send();
    }
    EXPECT_TRUE(page().text().startsWith("Nothing was sent, because the theme cannot be saved."))
        << page().text().toStdString();
    EXPECT_TRUE(editor().document().hasUnsavedChanges());
    key(Qt::Key_Escape);
    send(); // to where nobody listens
    EXPECT_FALSE(page().text().isEmpty());
    EXPECT_FALSE(editor().document().hasUnsavedChanges());
}
