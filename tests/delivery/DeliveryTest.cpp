#include "delivery/Delivery.h"

#include "delivery/MemoryPhone.h"

namespace
{
using Status = DeliveryResult::Status;

const QByteArray root = "/themes", theme = root + "/Sea", previous = root + "/.Sea.previous";

using Files = std::map<QString, QByteArray>;

Files package(const QByteArray &mark, qsizetype size = 100'000)
{
    return {{"Info.plist", mark},
            {"Back.jpg", mark.repeated(size)},
            {"UIKit/Dot.png", mark},
            {"UIKit/deep/er/empty", ""}};
}

std::map<QByteArray, QByteArray> onDisk(const Files &package)
{
    std::map<QByteArray, QByteArray> files{
        {"UIKit", {}}, {"UIKit/deep", {}}, {"UIKit/deep/er", {}}};
    for (const auto &[path, bytes] : package)
        files[path.toUtf8()] = bytes;
    return files;
}

const Files oldOne = package("o"), newOne = package("n"), newest = package("x", 10);

struct DeliveryTest : testing::Test {
    DeliveryTest() { disk.put(root, MemoryDisk::folder); }

    DeliveryResult send(MemoryPhone &phone, const std::optional<Files> &contents,
                        const DeliveryQuestions &questions = {})
    {
        return deliver({{"phone", 0, {}}, QString(root), "Sea", contents}, phone, questions);
    }
    DeliveryResult send(const std::optional<Files> &contents)
    {
        MemoryPhone phone(disk);
        return send(phone, contents);
    }

    /// The disk with the old theme, and one before it.
    void reset()
    {
        disk = {};
        disk.put(root, MemoryDisk::folder);
        disk.put(root + "/Other", MemoryDisk::folder);
        disk.put(root + "/Other/Info.plist", MemoryDisk::file, "other");
        ASSERT_EQ(send(newest).status, Status::Done);
        ASSERT_EQ(send(oldOne).status, Status::Done);
    }

    bool holds(const QByteArray &path, const Files &contents) const
    {
        return disk.below(path) == onDisk(contents);
    }

    /// Old or new, whole; between two renames the old one is the one before.
    void expectWhole(const std::string &where) const
    {
        EXPECT_TRUE(disk.items.contains(theme) ? holds(theme, oldOne) || holds(theme, newOne)
                                               : holds(previous, oldOne))
            << where;
    }

    /// What the next sender leaves: its theme, a whole one before it, and nothing else.
    void expectNextPutsRight(const std::string &where)
    {
        ASSERT_EQ(send(newest).status, Status::Done) << where;
        EXPECT_TRUE(holds(theme, newest)) << where;
        EXPECT_TRUE(holds(previous, oldOne) || holds(previous, newOne)) << where;
        EXPECT_EQ(disk.names(root), (QByteArrayList{".Sea.previous", "Other", "Sea"})) << where;
        EXPECT_EQ(disk.items[root + "/Other/Info.plist"].bytes, "other") << where;
    }

    MemoryDisk disk;
};
} // namespace

TEST_F(DeliveryTest, SendsReplacesAndPutsBack)
{
    EXPECT_EQ(send(std::nullopt).status, Status::Failed) << "there is none before";
    std::vector<DeliveryProgress> told;
    MemoryPhone phone(disk);
    DeliveryQuestions questions;
    questions.progress = [&](const DeliveryProgress &progress) { told.push_back(progress); };
    const DeliveryResult first = send(phone, oldOne, questions);
    EXPECT_EQ(first.status, Status::Done) << first.text.toStdString();
    EXPECT_TRUE(first.next.contains("\"Sea\""));
    EXPECT_TRUE(holds(theme, oldOne));
    EXPECT_EQ(disk.names(root), QByteArrayList{"Sea"});
    for (const auto &[path, item] : disk.items)
        EXPECT_EQ(item.mode & 07777, 0777U) << path.toStdString();
    qint64 sent = 0;
    for (const DeliveryProgress &progress : told) {
        EXPECT_TRUE(progress.sent >= sent || progress.total == 0);
        sent = progress.sent;
    }
    EXPECT_EQ(sent, told.back().total);
    EXPECT_GT(sent, 100'000);

    ASSERT_EQ(send(newOne).status, Status::Done);
    EXPECT_TRUE(holds(theme, newOne) && holds(previous, oldOne));
    ASSERT_EQ(send(std::nullopt).status, Status::Done);
    EXPECT_TRUE(holds(theme, oldOne) && holds(previous, newOne));
    ASSERT_EQ(send(newest).status, Status::Done);
    EXPECT_TRUE(holds(theme, newest) && holds(previous, oldOne));
    EXPECT_EQ(disk.names(root), (QByteArrayList{".Sea.previous", "Sea"}));
}

TEST_F(DeliveryTest, AfterACutAnywhereThePhoneHoldsOneThemeWhole)
{
    for (const auto &contents : {std::optional(newOne), std::optional<Files>()}) {
        for (int request = 0;; ++request) {
            const std::string where = "cut at request " + std::to_string(request);
            reset();
            MemoryPhone phone(disk);
            phone.cutAt = request;
            const DeliveryResult result = send(phone, contents);
            if (phone.requests <= request)
                break;
            EXPECT_FALSE(result.text.isEmpty()) << where;
            if (contents) {
                expectWhole(where);
                EXPECT_TRUE(result.status != Status::Done || holds(theme, newOne)) << where;
                expectNextPutsRight(where);
            } else {
                EXPECT_TRUE(holds(theme, oldOne) || holds(theme, newest) || holds(previous, newest))
                    << where;
                EXPECT_EQ(send(newOne).status, Status::Done);
                EXPECT_TRUE(holds(theme, newOne)) << where;
            }
        }
    }
}

TEST_F(DeliveryTest, AfterARefusalOfAnyRequestThePhoneHoldsOneThemeWhole)
{
    for (const quint32 status : {2U, 3U, 4U}) {
        for (int request = 3;; ++request) {
            const std::string where = "refused request " + std::to_string(request);
            reset();
            MemoryPhone phone(disk);
            phone.failAt = request;
            phone.failure = status;
            const DeliveryResult result = send(phone, newOne);
            if (phone.requests <= request)
                break;
            EXPECT_TRUE(holds(theme, result.status == Status::Done ? newOne : oldOne))
                << where << ": " << result.text.toStdString();
            expectNextPutsRight(where);
        }
    }
}

TEST_F(DeliveryTest, ACancelAtAnyMomentLeavesNothingBehind)
{
    for (int request = 0;; ++request) {
        const std::string where = "cancelled at request " + std::to_string(request);
        reset();
        const auto before = disk.items;
        bool cancelled = false;
        MemoryPhone phone(disk);
        phone.onRequest = [&](int number) { cancelled = cancelled || number == request; };
        DeliveryQuestions questions;
        questions.cancelled = [&] { return cancelled; };
        const DeliveryResult result = send(phone, newOne, questions);
        if (!cancelled)
            break;
        const bool isDone = result.status == Status::Done;
        EXPECT_TRUE(isDone ? holds(theme, newOne) && holds(previous, oldOne)
                           : result.status == Status::Cancelled && disk.items == before)
            << where;
    }
}

TEST_F(DeliveryTest, TwoSendersAtOnceNeverMixTheirThemes)
{
    for (int request = 2;; ++request) {
        const std::string where = "the other comes at request " + std::to_string(request);
        reset();
        Status other = Status::Failed;
        MemoryPhone phone(disk);
        phone.onRequest = [&](int number) {
            if (number == request)
                other = send(newest).status;
        };
        const DeliveryResult result = send(phone, newOne);
        if (phone.requests <= request)
            break;
        EXPECT_TRUE(result.status == Status::Done || other == Status::Done) << where;
        EXPECT_TRUE(holds(theme, newest) || holds(theme, newOne)) << where;
        EXPECT_TRUE(other == Status::Done || holds(theme, newOne)) << where;
        ASSERT_EQ(send(oldOne).status, Status::Done) << where;
        EXPECT_EQ(disk.names(root), (QByteArrayList{".Sea.previous", "Other", "Sea"})) << where;
    }
}

TEST_F(DeliveryTest, LeavesAloneWhatIsALinkOrSomebodyElses)
{
    const auto refused = [this](const QByteArray &path, quint32 kind, quint32 owner,
                                const QString &told) {
        reset();
        for (const auto &[name, bytes] : disk.below(path == root ? "/none" : path))
            disk.items.erase(path + '/' + name);
        disk.put(path, kind, {}, owner);
        disk.put(path == root ? root : root + "/.Tintloom.part-0123456789abcdef", kind, {}, owner);
        const auto before = disk.items;
        for (const auto &contents : {std::optional(newOne), std::optional<Files>()}) {
            const DeliveryResult result = send(contents);
            EXPECT_EQ(result.status, Status::Failed) << path.toStdString();
            EXPECT_TRUE(result.text.contains(told)) << result.text.toStdString();
            EXPECT_EQ(disk.items, before) << path.toStdString();
        }
    };
    for (const QByteArray &path : {root, theme, previous}) {
        refused(path, MemoryDisk::link, 501, "link");
        refused(path, MemoryDisk::file, 501, "no folder");
        refused(path, MemoryDisk::folder, 502, "somebody else");
    }

    reset();
    disk.put(root + "/.Tintloom.part-0123456789abcdef", MemoryDisk::link);
    disk.put(root + "/.Tintloom.part-mine", MemoryDisk::folder);
    disk.put(root + "/.Tintloom.part-00000000ffffffff", MemoryDisk::folder, {}, 502);
    EXPECT_EQ(send(newOne).status, Status::Done);
    EXPECT_EQ(disk.names(root).size(), 6) << "what only looks like ours stays";
}

TEST_F(DeliveryTest, SaysWhatIsWrongWithThePhonesDisk)
{
    reset();
    disk.readOnly = root;
    EXPECT_TRUE(send(newOne).text.contains("does not permit"));
    reset();
    disk.room = 50'000;
    const auto before = disk.items;
    EXPECT_TRUE(send(newOne).text.contains("no room"));
    EXPECT_EQ(disk.items, before);
    disk.items.clear();
    EXPECT_TRUE(send(newOne).text.contains("no folder \"/themes\""));
}

TEST_F(DeliveryTest, SendsNothingBeforeHostAndUserAreAccepted)
{
    const auto told = [this](MemoryPhone &phone, const DeliveryQuestions &questions) {
        const DeliveryResult result = send(phone, newOne, questions);
        EXPECT_EQ(result.status == Status::Done, disk.items.contains(theme));
        return result;
    };
    MemoryPhone changed(disk), unknown(disk), accepted(disk), denied(disk), third(disk);
    changed.key = {SshHostKey::Standing::Changed,
                   "ssh-ed25519",
                   "SHA256:new",
                   "SHA256:old",
                   "/home/me/known",
                   17};
    DeliveryQuestions yes;
    yes.acceptHost = [](const UnknownHost &host) { return host.fingerprint == "SHA256:abc"; };
    const DeliveryResult refusal = told(changed, yes);
    EXPECT_EQ(refusal.status, Status::HostRefused);
    for (const char *part : {"SHA256:new", "SHA256:old", "line 17 of /home/me/known"})
        EXPECT_TRUE(refusal.text.contains(part)) << refusal.text.toStdString();
    unknown.key.standing = accepted.key.standing = SshHostKey::Standing::Unknown;
    EXPECT_EQ(told(unknown, {}).status, Status::HostRefused);
    EXPECT_FALSE(unknown.remembered);

    int asked = 0;
    DeliveryQuestions knows;
    knows.password = [&asked](const QString &prompt) {
        EXPECT_TRUE(prompt.contains("mobile"));
        return std::optional<Secret>(std::in_place, ++asked < 3 ? "wrong-word" : "right-word");
    };
    denied.withKeys = third.withKeys = SshLogin::Denied;
    denied.password = "never-said";
    third.password = "right-word";
    const DeliveryResult notIn = told(denied, {});
    EXPECT_EQ(notIn.status, Status::NotLetIn);
    asked = -10;
    EXPECT_FALSE(told(denied, knows).text.contains("word"));
    EXPECT_EQ(denied.tried.size(), 3);
    asked = 0;
    EXPECT_EQ(told(third, knows).status, Status::Done);
    EXPECT_EQ(told(accepted, yes).status, Status::Done);
    EXPECT_TRUE(accepted.remembered);
}

TEST_F(DeliveryTest, DoesNotTrustWhatThePhoneSays)
{
    for (int reply = 0; reply < 60; ++reply) {
        for (const int damage : {0, 1, 2, 3}) {
            reset();
            int count = 0;
            MemoryPhone phone(disk);
            phone.cutAt = 1000; // ends what would wait for a reply that was lost
            phone.onReply = [&](QByteArray &packet) {
                if (count++ != reply)
                    return;
                switch (damage) {
                case 0:
                    packet.chop(packet.size() / 2);
                    break;
                case 1:
                    packet.replace(packet.size() / 2, 4, "\xff\xff\xff\xff");
                    break;
                case 2:
                    packet[0] = char(104); // names
                    break;
                default:
                    packet[1] = char(0x7f); // to nobody's request
                }
            };
            const DeliveryResult result = send(phone, newOne);
            EXPECT_TRUE(result.status != Status::Done || holds(theme, newOne)) << reply;
            expectWhole("damaged reply " + std::to_string(reply));
        }
    }
}

TEST_F(DeliveryTest, RefusesNamesThatLeadElsewhere)
{
    for (const char *name : {"", ".", "..", ".hidden", "a/b", "a\nb"}) {
        MemoryPhone phone(disk);
        EXPECT_EQ(deliver({{"phone", 0, {}}, QString(root), name, newOne}, phone, {}).status,
                  Status::Failed)
            << name;
        EXPECT_EQ(phone.requests, 0);
    }
    for (const char *path : {"../Other/Info.plist", "a//b", "/etc/x", "a/./b", ""}) {
        Files contents = newOne;
        contents[path] = "x";
        EXPECT_EQ(send(contents).status, Status::Failed) << path;
    }
    EXPECT_EQ(disk.items.size(), 1U);
}
