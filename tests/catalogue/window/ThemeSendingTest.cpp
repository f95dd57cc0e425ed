#include "catalogue/window/ThemeSending.h"

#include "delivery/window/SendController.h"
#include "support/CatalogueFixture.h"
#include "support/SshServer.h"

namespace
{
struct ThemeSendingTest : CatalogueFixture {
    void clickInSheetOfRed(const char *entry)
    {
        tap(sceneFrame(row("Red")).center(), Qt::RightButton);
        ASSERT_TRUE(window().actionSheet());
        const QStringList entries = window().actionSheet()->buttonTitles();
        EXPECT_EQ(entries, (QStringList{"Edit", u"Send to Phone…"_qs, "Cancel"}));
        window().actionSheet()->click(int(entries.indexOf(entry)));
        settle();
    }
};
} // namespace

TEST_F(ThemeSendingTest, ASecondaryClickOnAReadyMadeThemeOffersToSendOrEditIt)
{
    const SshServer server;
    if (!server.isRunning())
        GTEST_SKIP() << server.problem().toStdString();
    server.trust();
    ASSERT_FALSE(
        RememberedPhones(folders().theme.documents)
            .remember({"Mine", {"127.0.0.1", server.port(), SshServer::user()}, server.themes()}));
    open();
    clickInSheetOfRed("Edit");
    ASSERT_TRUE(window().alert());
    EXPECT_EQ(window().alert()->tag(), 1);
    window().alert()->click(0);

    clickInSheetOfRed("Send to Phone…");
    auto *const page = dynamic_cast<SendController *>(window().presentedViewController());
    ASSERT_TRUE(page);
    page->mainTapped();
    while (page->step() != SendController::Step::Result)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    ASSERT_EQ(page->text(), "Red is on the phone, in " + server.themes() + ".");
    const QString theme = server.themes() + "/Red";
    EXPECT_EQ(contents(theme + "/UIKit/image.png"), "picture");
    const auto sent = PropertyList::readDictionary(contents(theme + "/Info.plist"));
    ASSERT_TRUE(sent);
    EXPECT_EQ(*sent->find("name"), "Red");
    EXPECT_EQ(*sent->find("plain"), "#FF0000FF");
}
