#include "delivery/DeliveryTask.h"

#include "delivery/MemoryPhone.h"

#include <QCoreApplication>

namespace
{
using Status = DeliveryResult::Status;

struct DeliveryTaskTest : testing::Test {
    DeliveryTaskTest() { disk.put("/themes", MemoryDisk::folder); }

    DeliveryTask::Connect stranger()
    {
        return [this](QString &) {
            auto phone = std::make_unique<MemoryPhone>(disk);
            phone->key.standing = SshHostKey::Standing::Unknown;
            phone->withKeys = SshLogin::Denied;
            phone->password = "right";
            return phone;
        };
    }

    std::unique_ptr<DeliveryTask> start()
    {
        handlers.finished = [this](const DeliveryResult &result) { finished = result; };
        return std::make_unique<DeliveryTask>(request, handlers, stranger());
    }

    template <typename Condition>
    static void until(const Condition &condition)
    {
        while (!condition())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    MemoryDisk disk; // before the tasks, which use it on their queues
    DeliveryRequest request{{"phone", 0, {}}, "/themes", "Sea", {{{"Info.plist", "theme"}}}};
    DeliveryTask::Handlers handlers;
    std::optional<DeliveryResult> finished;
};
} // namespace

TEST_F(DeliveryTaskTest, AsksOnTheMainThreadAndWaitsForThePerson)
{
    DeliveryTask::Answer later;
    bool wrong = true;
    qint64 sent = 0;
    const auto isMain = [main = std::this_thread::get_id()] {
        return std::this_thread::get_id() == main;
    };
    handlers.acceptHost = [&](const UnknownHost &host, const DeliveryTask::Answer &answer) {
        EXPECT_TRUE(isMain());
        EXPECT_EQ(host.fingerprint, "SHA256:abc");
        later = answer;
    };
    handlers.password = [&](const QString &, const DeliveryTask::PasswordAnswer &answer) {
        EXPECT_TRUE(isMain());
        answer(std::optional<Secret>(std::in_place, wrong ? "wrong" : "right"));
        wrong = false;
    };
    handlers.progress = [&](const DeliveryProgress &progress) { sent = progress.sent; };
    const auto task = start();
    until([&] { return bool(later); });
    EXPECT_FALSE(finished);
    later(true);
    until([&] { return finished.has_value(); });
    EXPECT_EQ(finished->status, Status::Done) << finished->text.toStdString();
    EXPECT_EQ(sent, 5);
    EXPECT_EQ(disk.items["/themes/Sea/Info.plist"].bytes, "theme");
}

TEST_F(DeliveryTaskTest, AnUnansweredQuestionIsANoAndACancelAnswersIt)
{
    handlers.acceptHost = [](const UnknownHost &, const DeliveryTask::Answer &) {};
    auto task = start();
    until([&] { return finished.has_value(); });
    EXPECT_EQ(finished->status, Status::HostRefused);

    finished.reset();
    std::vector<DeliveryTask::Answer> kept;
    handlers.acceptHost = [&](const UnknownHost &, const DeliveryTask::Answer &answer) {
        kept.push_back(answer);
    };
    task = start();
    until([&] { return !kept.empty(); });
    task->cancel();
    until([&] { return finished.has_value(); });
    EXPECT_EQ(finished->status, Status::Cancelled);
    kept.back()(true); // too late, and nobody minds

    // A window that closes takes the task with it at any moment.
    finished.reset();
    for (int moment = 0; moment < 20; ++moment) {
        task = start();
        for (int event = 0; event < moment; ++event)
            QCoreApplication::processEvents();
        task.reset();
        EXPECT_FALSE(finished);
    }
    EXPECT_EQ(disk.items.size(), 1U);
}
