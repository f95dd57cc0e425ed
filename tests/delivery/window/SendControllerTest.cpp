#include "delivery/window/SendController.h"

#include "delivery/MemoryPhone.h"
#include "delivery/window/SecretField.h"
#include "support/EditorFixture.h"

#include <QAccessible>

#include <semaphore>

namespace
{
using Step = SendController::Step;

struct SendControllerTest : EditorFixture {
    void SetUp() override
    {
        writeDocument(manyElements(3));
        start();
        disk.put("/themes", MemoryDisk::folder);
    }
    void TearDown() override { stop(); } // before the disk goes

    SendController *page()
    {
        return qobject_cast<SendController *>(window().presentedViewController());
    }
    template <typename Item = QQuickItem>
    Item *part(const char *name)
    {
        return page()->view()->findChild<Item *>(name);
    }
    void tapPart(const char *name)
    {
        grab(); // a column places what has come or gone when it is drawn
        tap(part(name));
    }
    QString shown(const char *name) { return part(name)->property("text").toString(); }
    RememberedPhones remembered() { return RememberedPhones(folders().theme.documents); }

    void present()
    {
        const auto connect = [this](QString &) {
            auto phone = std::make_unique<MemoryPhone>(disk);
            setUpPhone(*phone);
            return phone;
        };
        const auto read = [this](QString &) { return std::optional(theme); };
        window().presentViewController(SendController::init(
            folders().theme.documents, {"Sea", [read](const auto &then) { then(read); }}, connect));
        settle();
    }
    void presentWithPhone()
    {
        ASSERT_FALSE(remembered().remember({"Mine", {"phone", 0, {}}, "/themes"}));
        present();
        ASSERT_EQ(page()->step(), Step::Phones);
    }
    void put(const char *field, const QString &text)
    {
        part(field)->findChild<QQuickItem *>("input")->setProperty("text", text);
    }
    void choose(const char *entry)
    {
        tapPart("other");
        const QStringList entries = window().actionSheet()->buttonTitles();
        ASSERT_TRUE(entries.contains(entry)) << entry;
        window().actionSheet()->click(int(entries.indexOf(entry)));
        settle();
    }
    template <typename Condition>
    void until(const Condition &condition)
    {
        while (!condition())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        settle();
    }
    void untilStep(Step step)
    {
        until([&] { return page()->step() == step; });
    }
    bool isDelivering() { return window().findChild<PhoneDelivery *>() != nullptr; }
    QByteArray onPhone(const char *path) { return disk.items[path].bytes; }

    MemoryDisk disk;
    std::function<void(MemoryPhone &)> setUpPhone = [](MemoryPhone &) {};
    DeliveryTask::Files theme{{"Info.plist", "new"}, {"Back.jpg", QByteArray(100'000, 'n')}};
};

void makeStranger(MemoryPhone &phone)
{
    phone.key.standing = SshHostKey::Standing::Unknown;
    phone.withKeys = SshLogin::Denied;
    phone.password = "right";
}
} // namespace

TEST_F(SendControllerTest, SendsToANewPhoneAndAsksOnTheWay)
{
    setUpPhone = makeStranger;
    present();
    EXPECT_EQ(page()->step(), Step::Form); // there is none to choose
    type("phone");
    put("folder", "/themes");
    key(Qt::Key_Return);
    ASSERT_EQ(page()->step(), Step::Phones);
    QStringList said;
    QObject::connect(page(), &SendController::changed, page(), [&] {
        if (page()->step() == Step::Sending)
            said += page()->amount();
    });
    tapPart("main");
    untilStep(Step::Host);
    EXPECT_TRUE(shown("text").contains("phone is not known yet"));
    EXPECT_TRUE(shown("details").contains("SHA256:abc"));
    EXPECT_TRUE(part("other")->hasActiveFocus()); // Return does not accept
    tapPart("main");
    untilStep(Step::Password);
    EXPECT_EQ(shown("text"), "Password of mobile on phone:");
    type("wrong");
    key(Qt::Key_Return);
    untilStep(Step::Password);
    EXPECT_EQ(shown("details"), "That was not the right one.");
    type("right");
    auto *const spoken = QAccessible::queryAccessibleInterface(part("secret"));
    EXPECT_TRUE(spoken->state().passwordEdit);
    EXPECT_EQ(spoken->text(QAccessible::Value), "");
    EXPECT_EQ(part<SecretField>("secret")->length(), 5);
    key(Qt::Key_Return);
    EXPECT_EQ(part<SecretField>("secret")->length(), 0);
    untilStep(Step::Result);
    EXPECT_EQ(shown("text"), "Sea is on the phone, in /themes.");
    EXPECT_TRUE(shown("details").contains("\"Apply Theme\""));
    EXPECT_TRUE(said.contains("97.66 KiB of 97.66 KiB")) << said.join('\n').toStdString();
    EXPECT_EQ(onPhone("/themes/Sea/Info.plist"), "new");
    EXPECT_FALSE(contents(folders().theme.documents + "/Phones.plist").contains("right"));
    key(Qt::Key_Return); // "Done" has the keyboard
    EXPECT_FALSE(page());
}

TEST_F(SendControllerTest, PutsTheOldThemeBackAndTellsWhenThereIsNone)
{
    presentWithPhone();
    tapPart("main");
    untilStep(Step::Result);
    EXPECT_EQ(part("other")->property("title"), "Put the Old Theme Back");
    const QString sent = shown("text");
    tapPart("other");
    until([&] { return page()->step() == Step::Result && shown("text") != sent; });
    EXPECT_EQ(onPhone("/themes/Sea/Info.plist"), "new");
    tapPart("main"); // "Back"
    theme["Info.plist"] = "newer";
    tapPart("main");
    untilStep(Step::Result);
    ASSERT_EQ(onPhone("/themes/Sea/Info.plist"), "newer");
    key(Qt::Key_Escape);
    present();
    choose("Put the Old Theme Back");
    untilStep(Step::Result);
    EXPECT_EQ(shown("text"), "The earlier Sea is in its place again on the phone.");
    EXPECT_EQ(onPhone("/themes/Sea/Info.plist"), "new");
}

TEST_F(SendControllerTest, ACancelOrAClosedPageAtAnyMomentLeavesTheOldThemeOrTheNew)
{
    disk.put("/themes/Sea", MemoryDisk::folder);
    disk.put("/themes/Sea/Info.plist", MemoryDisk::file, "old");
    const MemoryDisk before = disk;
    ASSERT_FALSE(remembered().remember({"Mine", {"phone", 0, {}}, "/themes"}));
    int cancelled = 0, late = 0;
    bool isReached = true;
    for (int moment = 0; isReached; ++moment) {
        SCOPED_TRACE(moment);
        disk = before;
        std::binary_semaphore reached{0}, go{0};
        setUpPhone = [&](MemoryPhone &phone) {
            phone.onRequest = [&, moment](int number) {
                if (number != moment)
                    return;
                reached.release();
                MainQueue::async([] {}); // which waits for something to happen
                go.acquire();
            };
        };
        present();
        const bool closes = moment % 3 == 2;
        tapPart("main");
        isReached = false;
        until([&] {
            isReached = isReached || reached.try_acquire();
            return isReached || page()->step() == Step::Result;
        });
        if (closes)
            tapPart("close");
        else if (moment % 3 == 1)
            key(Qt::Key_Escape);
        else if (isReached)
            tapPart("other");
        go.release();
        until([&] { return !isDelivering(); });
        const QByteArray now = onPhone("/themes/Sea/Info.plist");
        EXPECT_TRUE(now == "old" || now == "new") << now.toStdString();
        EXPECT_FALSE(disk.names("/themes").join('\n').contains(".part-"));
        if (closes) {
            EXPECT_FALSE(page());
            EXPECT_EQ(window().alert() != nullptr, isReached && now == "new");
            if (window().alert())
                window().alert()->click(0);
        } else if (isReached) {
            EXPECT_EQ(page()->step(), Step::Result);
            EXPECT_EQ(shown("text").startsWith("Cancelled"), now == "old");
        }
        (now == "old" ? cancelled : late) += isReached;
        window().presentViewController(nullptr);
    }
    EXPECT_GT(cancelled, 8);
    EXPECT_GT(late, 0);
}

TEST_F(SendControllerTest, AnOpenQuestionEndsWithThePageAndWithTheProgram)
{
    setUpPhone = makeStranger;
    presentWithPhone();
    tapPart("main");
    untilStep(Step::Host);
    key(Qt::Key_Escape);
    untilStep(Step::Result);
    EXPECT_EQ(shown("text"), "Cancelled. The phone is as it was.");
    tapPart("main");
    tapPart("main");
    untilStep(Step::Host);
    tapPart("main");
    untilStep(Step::Password);
    type("half");
    tapPart("other");
    EXPECT_EQ(part<SecretField>("secret")->length(), 0);
    untilStep(Step::Result);
    tapPart("main");
    tapPart("main");
    untilStep(Step::Host);
    EXPECT_FALSE(page()->allowsBack());
    tapPart("close");
    until([&] { return !isDelivering(); });
    present();
    tapPart("main");
    untilStep(Step::Host);
    stop();
    EXPECT_EQ(disk.items.size(), 1U);
}

TEST_F(SendControllerTest, TheListIsKeptAndNothingInItIsLost)
{
    const auto names = [this] {
        QStringList names;
        for (const RememberedPhone &phone : remembered().all())
            names += phone.name;
        return names;
    };
    presentWithPhone();
    choose("Add Phone…");
    EXPECT_EQ(part("folder")->property("text"), "/var/mobile/Library/biteThemes");
    put("host", "other");
    put("port", "many");
    put("name", "Mine");
    tapPart("keep");
    EXPECT_EQ(shown("formProblem"), "A port is a number from 1 to 65535.");
    put("port", "2222");
    tapPart("keep");
    EXPECT_EQ(shown("formProblem"), "There is a phone \"Mine\" already.");
    EXPECT_EQ(part("host")->property("text"), "other"); // typed once is enough
    put("name", "Other");
    tapPart("keep");
    EXPECT_EQ(names(), (QStringList{"Other", "Mine"}));

    choose("Change…");
    EXPECT_EQ(part("port")->property("text"), "2222");
    put("name", "Renamed");
    key(Qt::Key_Escape);
    EXPECT_EQ(names(), (QStringList{"Other", "Mine"}));
    choose("Change…");
    put("name", "Renamed");
    tapPart("keep");
    EXPECT_EQ(names(), (QStringList{"Renamed", "Mine"}));

    page()->view()->findChild<UITableView *>()->selectRow({0, 1});
    choose("Remove");
    EXPECT_EQ(names(), QStringList{"Renamed"});
    choose("Undo Remove Mine");
    EXPECT_EQ(names(), (QStringList{"Mine", "Renamed"}));
    const FaultHookGuard guard(failing(NSFileManager::Operation::Write, "Phones.plist"));
    choose("Remove");
    EXPECT_TRUE(shown("notice").startsWith("The phone cannot be removed: "));
    EXPECT_EQ(names(), (QStringList{"Mine", "Renamed"}));
}
