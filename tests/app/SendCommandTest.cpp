#include "delivery/RememberedPhones.h"
#include "support/ProgramFixture.h"
#include "support/SshServer.h"
#include "support/ThemeRecords.h"

#include <QImage>

namespace
{
struct SendCommandTest : ProgramFixture {
    void SetUp() override
    {
        putElements({element("ground", "\"#F00\""), element("list-background-image", "\"#FFF\"")});
        putThemes(resources, themeRecord("Dark", "Midnight"));
        PropertyDictionary info;
        info.setValue("ground", "#000");
        put(resources + "/Midnight/Info.plist", PropertyList::writeDictionary(info));
        put(resources + "/Midnight/UIKit/Own.png", "its maker's");
    }

    static QString color(const QString &theme)
    {
        const auto info = PropertyList::readDictionary(contents(theme + "/Info.plist"));
        return info ? info->find("ground")->toString() : QString();
    }
};
} // namespace

TEST_F(SendCommandTest, SendsTheChoicesOrAThemeAndPutsBack)
{
    const SshServer server;
    if (!server.isRunning())
        GTEST_SKIP() << server.problem().toStdString();
    const QString phone = QString("%1@127.0.0.1:%2").arg(SshServer::user()).arg(server.port());
    const QString options = " --folder " + server.themes() + " --name Mine";
    const QString theme = server.themes() + "/Mine";

    QImage photo(8, 8, QImage::Format_RGB32);
    photo.fill(Qt::red);
    ASSERT_TRUE(photo.save(folder.filePath("photo.png")));
    ASSERT_EQ(run("save --picture list-background-image=" + folder.filePath("photo.png")).exitCode,
              0);
    QFile::remove(locations.packageInfo());
    const Finished unknown = run("send " + phone + options);
    EXPECT_EQ(unknown.exitCode, 4) << unknown.err.toStdString();
    const QString shown = unknown.err.mid(unknown.err.indexOf("SHA256:")).left(50).trimmed();
    EXPECT_EQ(run("send " + phone + options + " --accept-host SHA256:other").exitCode, 4);
    EXPECT_FALSE(QFile::exists(theme));
    const Finished sent = run("send " + phone + options + " --accept-host " + shown);
    ASSERT_EQ(sent.exitCode, 0) << sent.err.toStdString();
    EXPECT_TRUE(sent.out.contains("choose \"Mine\"")) << sent.out.toStdString();
    EXPECT_FALSE(sent.out.contains('\r')) << "there is no terminal";
    EXPECT_TRUE(tree(theme).contains("UIKit/UnreadIndicator@2x.png"));
    EXPECT_FALSE(QFile::exists(locations.packageInfo())) << "the theme here stays";
    EXPECT_FALSE(tree(theme).join(' ').contains("Picture-")) << "what was drawn of it is enough";
    EXPECT_FALSE(contents(theme + "/Info.plist").contains("Picture-"));

    const QString chosen = color(theme);
    EXPECT_EQ(run("send Midnight " + phone + options).exitCode, 0);
    EXPECT_NE(color(theme), chosen);
    EXPECT_EQ(contents(theme + "/UIKit/Own.png"), "its maker's");
    EXPECT_EQ(run("send --back " + phone + options).exitCode, 0);
    EXPECT_EQ(color(theme), chosen);
    const auto phones = RememberedPhones(locations.documents).all();
    ASSERT_EQ(phones.size(), 1U);
    EXPECT_EQ(phones[0].name, phone);
    EXPECT_EQ(phones[0].folder, server.themes());

    // The server wants no password, and what would ask for one is not asked.
    const QString stranger = QString("stranger@127.0.0.1:%1").arg(server.port());
    const Finished out = run("send " + stranger + options, {{"SSH_ASKPASS", "/bin/false"}});
    EXPECT_EQ(out.exitCode, 5) << out.err.toStdString();
    EXPECT_EQ(run("send " + phone + " --folder /none").exitCode, 1);
}

TEST_F(SendCommandTest, RefusesWhatIsNoPhone)
{
    expectRefused("send", 2, {"needs a phone"});
    expectRefused("send a b c", 2, {"unexpected argument"});
    for (const QString phone :
         {"-oProxyCommand=x@y", "a@b@c", "phone:0", "phone:70000", "a`b`", "''"})
        expectRefused("send -- " + phone, 2, {});
    expectRefused("send phone --accept-host aa:bb", 2, {"no fingerprint"});
    expectRefused("send phone --name ../x", 2, {"cannot be the name"});
    expectRefused("send midnihgt phone", 2, {"near it: Midnight"});
    expectRefused("list --back", 2, {"belongs to 'send'"});
}
