// Sending to a real server.

#include "delivery/Delivery.h"
#include "delivery/PasswordServer.h"
#include "delivery/SshModules.h"
#include "support/CuttingProxy.h"

namespace
{
using Status = DeliveryResult::Status;
using Files = std::map<QString, QByteArray>;

Files threeFiles(const QByteArray &mark)
{
    return {{"Info.plist", mark}, {"Back.jpg", mark.repeated(200'000)}, {"UIKit/Dot.png", mark}};
}

const Files oldTheme = threeFiles("o"), newTheme = threeFiles("n"), newestTheme = threeFiles("x");

struct SshDeliveryTest : testing::Test {
    static void SetUpTestSuite() { server = new SshServer; }
    static void TearDownTestSuite()
    {
        delete server;
        server = nullptr;
    }

    void SetUp() override
    {
        if (!server->isRunning())
            GTEST_SKIP() << server->problem().toStdString();
        NSFileManager::removeItemAtPath(server->themes());
        QDir().mkpath(server->themes());
        server->giveToServer(server->themes());
        QFile::remove(server->configuration());
        server->trust();
        questions.acceptHost = [this](const UnknownHost &host) {
            asked.append(host.fingerprint);
            return accepts;
        };
    }

    DeliveryResult send(const std::optional<Files> &files, SshAddress address = {})
    {
        if (address.host.isEmpty())
            address = {"127.0.0.1", server->port(), SshServer::user()};
        const auto [module, problem] = SshModules::load();
        EXPECT_TRUE(module) << problem.toStdString();
        const auto connection = module->connection();
        return deliver({address, themes(), "Sea", files}, *connection, questions);
    }

    QString themes() const { return folder.isEmpty() ? server->themes() : folder; }

    bool holds(const QString &name, const Files &files) const
    {
        Files found;
        for (const QString &path : tree(themes() + "/" + name))
            if (!QFileInfo(themes() + "/" + name + "/" + path).isDir())
                found[path] = contents(themes() + "/" + name + "/" + path);
        return found == files;
    }

    static QString fingerprint(const QString &publicKey)
    {
        QProcess keygen;
        keygen.start("ssh-keygen", {"-lf", publicKey});
        keygen.waitForFinished();
        return QString::fromUtf8(keygen.readAll()).section(' ', 1, 1);
    }

    QStringList names() const
    {
        return QDir(themes()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    static SshServer *server;
    DeliveryQuestions questions;
    QStringList asked;
    bool accepts = true;
    QString folder;
};
SshServer *SshDeliveryTest::server = nullptr;
} // namespace

TEST_F(SshDeliveryTest, SendsReplacesAndPutsBack)
{
    const DeliveryResult first = send(oldTheme);
    ASSERT_EQ(first.status, Status::Done) << first.text.toStdString();
    EXPECT_TRUE(holds("Sea", oldTheme));
    EXPECT_EQ(asked, QStringList());
    for (const char *path : {"/Sea", "/Sea/UIKit", "/Sea/Info.plist", "/Sea/UIKit/Dot.png"})
        EXPECT_EQ(int(QFileInfo(server->themes() + path).permissions()) & 0x777, 0x777) << path;
    ASSERT_EQ(send(newTheme).status, Status::Done);
    ASSERT_EQ(send(newestTheme).status, Status::Done);
    EXPECT_TRUE(holds("Sea", newestTheme) && holds(".Sea.previous", newTheme));
    ASSERT_EQ(send(std::nullopt).status, Status::Done);
    EXPECT_TRUE(holds("Sea", newTheme) && holds(".Sea.previous", newestTheme));
    EXPECT_EQ(names().size(), 2);
}

TEST_F(SshDeliveryTest, AsksAboutAnUnknownHostOnceAndRefusesAChangedOne)
{
    put(server->knownHosts(), "elsewhere ssh-ed25519 AAAA"); // its last line has no end
    accepts = false;
    EXPECT_EQ(send(oldTheme).status, Status::HostRefused);
    EXPECT_EQ(asked, QStringList{fingerprint(server->hostKey() + ".pub")});
    accepts = true;
    EXPECT_EQ(send(oldTheme).status, Status::Done);
    EXPECT_EQ(send(oldTheme).status, Status::Done);
    EXPECT_EQ(asked.size(), 2) << contents(server->knownHosts()).toStdString();

    // Somebody else's key stands for it on the third line.
    QByteArray known = contents(server->knownHosts());
    const QByteArray other = contents(server->userKey() + ".pub").trimmed();
    put(server->knownHosts(), "# known\nelsewhere " + other +
                                  QString("\n[127.0.0.1]:%1 ").arg(server->port()).toUtf8() +
                                  other + "\n");
    const DeliveryResult changed = send(newTheme);
    EXPECT_EQ(changed.status, Status::HostRefused);
    EXPECT_EQ(asked.size(), 2);
    EXPECT_TRUE(holds("Sea", oldTheme));
    for (const QString &part :
         {fingerprint(server->hostKey() + ".pub"), fingerprint(server->userKey() + ".pub"),
          "line 3 of " + server->knownHosts()})
        EXPECT_TRUE(changed.text.contains(part)) << changed.text.toStdString();
}

TEST_F(SshDeliveryTest, LetsInByConfigurationAndAgent)
{
    put(server->configuration(), QString("Host phone\n HostName 127.0.0.1\n Port %1\n User %2\n")
                                     .arg(server->port())
                                     .arg(SshServer::user())
                                     .toUtf8());
    EXPECT_EQ(send(oldTheme, {"phone", 0, {}}).status, Status::Done);
    EXPECT_EQ(send(newTheme, {"phone", 0, "somebody-else"}).status, Status::NotLetIn);
    EXPECT_NE(send(newTheme, {"phone", freePort(), {}}).status, Status::Done);

    const QString socket = server->home() + "/agent", hidden = server->home() + "/key";
    QProcess agent;
    agent.start("ssh-agent", {"-D", "-a", socket});
    agent.waitForReadyRead();
    const Variable variable("SSH_AUTH_SOCK", socket.toUtf8());
    ASSERT_EQ(QProcess::execute("ssh-add", {"-q", server->userKey()}), 0);
    ASSERT_TRUE(QFile::rename(server->userKey(), hidden));
    EXPECT_EQ(send(newTheme).status, Status::Done);
    EXPECT_EQ(QProcess::execute("ssh-add", {"-q", "-D"}), 0);
    EXPECT_EQ(send(newestTheme).status, Status::NotLetIn);
    ASSERT_TRUE(QFile::rename(hidden, server->userKey()));
    agent.kill();
    agent.waitForFinished();
    EXPECT_TRUE(holds("Sea", newTheme));
}

TEST_F(SshDeliveryTest, AsksForTheWordsThatAKeyIsLockedWith)
{
    const QString key = server->userKey();
    const auto relock = [&](const QString &from, const QString &to) {
        return QProcess::execute("ssh-keygen", {"-q", "-p", "-P", from, "-N", to, "-f", key});
    };
    ASSERT_EQ(relock({}, "open sesame"), 0);
    QString prompt;
    std::string_view words = "open sesame";
    questions.password = [&](const QString &shown) {
        prompt = shown;
        return std::optional<Secret>(std::in_place, words);
    };
    EXPECT_EQ(send(oldTheme).status, Status::Done);
    EXPECT_TRUE(prompt.contains("key")) << prompt.toStdString();
    words = "wrong";
    const DeliveryResult refused = send(newTheme);
    EXPECT_EQ(refused.status, Status::NotLetIn);
    EXPECT_FALSE(refused.text.contains("wrong"));
    ASSERT_EQ(relock("open sesame", {}), 0);
    EXPECT_TRUE(holds("Sea", oldTheme));
}

TEST_F(SshDeliveryTest, SaysWhyItCannotSend)
{
    const auto told = [this](const QString &part) {
        const DeliveryResult result = send(newTheme);
        EXPECT_EQ(result.status, Status::Failed);
        EXPECT_TRUE(result.text.contains(part)) << result.text.toStdString();
    };
    folder = server->themes() + "/none";
    told("no folder");
    folder.clear();
    NSFileManager::setPosixPermissions(server->themes(), 0555);
    told("does not permit");
    NSFileManager::setPosixPermissions(server->themes(), 0755);
    ASSERT_TRUE(QFile::link("/etc", server->themes() + "/Sea"));
    told("is a link");
    EXPECT_EQ(names(), QStringList{"Sea"});
    EXPECT_TRUE(send(newTheme, {"127.0.0.1", freePort(), {}}).text.contains("refused"));
    EXPECT_TRUE(send(newTheme, {"no-such-host.invalid", 0, {}}).text.contains("no-such-host"));
}

TEST_F(SshDeliveryTest, AfterACutAnywhereThePhoneHoldsOneThemeWhole)
{
    ASSERT_EQ(send(oldTheme).status, Status::Done);
    put(server->configuration(), QString("Host phone\n HostName 127.0.0.1\n User %1\n"
                                         " StrictHostKeyChecking no\n")
                                     .arg(SshServer::user())
                                     .toUtf8());
    for (int pieces = 1;; ++pieces) {
        const CuttingProxy proxy(server->port(), {}, pieces);
        const DeliveryResult result = send(newTheme, {"phone", proxy.port(), {}});
        proxy.waitUntilIdle();
        // The server may end when its answer to the first renaming finds nobody.
        const QString theme = names().contains("Sea") ? "Sea" : ".Sea.previous";
        ASSERT_TRUE(holds(theme, oldTheme) || holds(theme, newTheme)) << pieces;
        if (!proxy.wasCut())
            break;
        EXPECT_TRUE(result.status != Status::Done || holds("Sea", newTheme)) << pieces;
    }
    ASSERT_EQ(send(newestTheme).status, Status::Done);
    EXPECT_TRUE(holds("Sea", newestTheme) && holds(".Sea.previous", newTheme));
    EXPECT_EQ(names(), (QStringList{".Sea.previous", "Sea"})) << "the next one tidies up";
}

TEST_F(SshDeliveryTest, ACancelInAnyPhaseLeavesNothingBehind)
{
    ASSERT_EQ(send(oldTheme).status, Status::Done);
    for (int phase = 0;; ++phase) {
        int count = 0;
        questions.progress = [&](const DeliveryProgress &) { ++count; };
        questions.cancelled = [&] { return count > phase; };
        const DeliveryResult result = send(newTheme);
        if (result.status == Status::Done)
            break;
        ASSERT_EQ(result.status, Status::Cancelled) << result.text.toStdString();
        EXPECT_TRUE(holds("Sea", oldTheme) && names().size() == 1) << phase;
    }
    EXPECT_TRUE(holds("Sea", newTheme));
}

TEST_F(SshDeliveryTest, OfTwoSendersOnesThemeArrivesWhole)
{
    ASSERT_EQ(send(oldTheme).status, Status::Done);
    for (int round = 0; round < 3; ++round) {
        DeliveryResult first, second;
        std::thread one([&] { first = send(newTheme); });
        second = send(newestTheme);
        one.join();
        EXPECT_TRUE(first.status == Status::Done || second.status == Status::Done)
            << first.text.toStdString() << second.text.toStdString();
        EXPECT_TRUE(holds("Sea", newTheme) || holds("Sea", newestTheme));
    }
    ASSERT_EQ(send(oldTheme).status, Status::Done);
    EXPECT_EQ(names(), (QStringList{".Sea.previous", "Sea"}));
}

TEST_F(SshDeliveryTest, SaysHowToAllowWhatIsOld)
{
    const SshServer old("KexAlgorithms diffie-hellman-group14-sha1\n");
    ASSERT_TRUE(old.isRunning()) << old.problem().toStdString();
    old.trust();
    const SshAddress address{"127.0.0.1", old.port(), SshServer::user()};
    folder = old.themes();
    const DeliveryResult refused = send(newTheme, address);
    EXPECT_EQ(refused.status, Status::Failed);
    EXPECT_TRUE(refused.text.contains("offers only diffie-hellman-group14-sha1"))
        << refused.text.toStdString();
    const QString advice = refused.text.section("config:\n", 1);
    put(old.configuration(), advice.toUtf8());
    const DeliveryResult allowed = send(newTheme, address);
    EXPECT_EQ(allowed.status, Status::Done) << allowed.text.toStdString();
}

TEST_F(SshDeliveryTest, AFullPhoneKeepsTheOldThemeAndItsRoom)
{
    if (::geteuid() != 0 || QProcess::execute("unshare", {"-m", "true"}) != 0)
        GTEST_SKIP() << "a small file system cannot be mounted";
    const SshServer small(
        {}, {"unshare", "-m", "sh", "-c",
             "mount -t tmpfs -o size=300k,mode=777 none \"$HOME/../themes\" && exec \"$@\"", "sh"});
    ASSERT_TRUE(small.isRunning()) << small.problem().toStdString();
    small.trust();
    folder = small.themes();
    const SshAddress address{"127.0.0.1", small.port(), SshServer::user()};
    ASSERT_EQ(send(oldTheme, address).status, Status::Done);
    for (int round = 0; round < 2; ++round) {
        const DeliveryResult full = send(newTheme, address);
        EXPECT_TRUE(full.text.contains("no room")) << full.text.toStdString();
    }
    EXPECT_EQ(send(Files{{"Info.plist", "n"}}, address).status, Status::Done);
    EXPECT_EQ(send(std::nullopt, address).status, Status::Done);
}

TEST_F(SshDeliveryTest, LetsInByPasswordAlone)
{
    for (const int method : {SSH_AUTH_METHOD_PASSWORD, SSH_AUTH_METHOD_INTERACTIVE}) {
        const PasswordServer strict(server->userKey(), "right", method);
        const auto connection = SshModules::load().module->connection();
        ASSERT_TRUE(connection->connect({"127.0.0.1", strict.port(), "mobile"}, {}))
            << connection->problem().toStdString();
        EXPECT_EQ(connection->hostKey().standing, SshHostKey::Standing::Unknown);
        EXPECT_EQ(connection->logInWithKeys({}), SshLogin::Denied);
        EXPECT_TRUE(connection->takesPassword());
        EXPECT_EQ(connection->logInWithPassword(Secret("wrong")), SshLogin::Denied);
        EXPECT_EQ(connection->logInWithPassword(Secret("right")), SshLogin::In)
            << connection->problem().toStdString();
        EXPECT_EQ(connection->user(), "mobile");
        connection->finish();
    }
}
