#include "delivery/RememberedPhones.h"

#include "delivery/PhoneAddress.h"
#include "support/Files.h"

#include <QTemporaryDir>

TEST(RememberedPhonesTest, KeepsTheLastOnesWithoutDoubles)
{
    const QTemporaryDir folder;
    const RememberedPhones phones(folder.filePath("new"));
    EXPECT_TRUE(phones.all().empty());
    for (int i = 0; i < 14; ++i)
        ASSERT_FALSE(phones.remember({"Phone " + QString::number(i), {"host", i, "mobile"}, "/x"}));
    ASSERT_FALSE(phones.remember({"Phone 9", {"fe80::1", 22, {}}, "/y"}));
    ASSERT_FALSE(phones.forget("Phone 13"));
    const auto all = phones.all();
    ASSERT_EQ(all.size(), 11U);
    EXPECT_EQ(all[0].name, "Phone 9");
    EXPECT_EQ(PhoneAddress::text(all[0].address), "[fe80::1]:22");
    EXPECT_EQ(all[0].folder, "/y");
    EXPECT_EQ(all[1].name, "Phone 12");
    EXPECT_EQ(PhoneAddress::text(all[1].address), "mobile@host:12");

    const QString file = folder.filePath("new/Phones.plist");
    const QByteArray before = contents(file);
    {
        const FaultHookGuard guard(failing(NSFileManager::Operation::Write, "Phones.plist"));
        EXPECT_TRUE(phones.forget("Phone 9"));
    }
    EXPECT_EQ(contents(file), before);
    for (const char *damaged :
         {"", "no list",
          "<plist><dict><key>phones</key><array><string>x</string><dict>"
          "<key>port</key><integer>99999999</integer></dict></array></dict></plist>"}) {
        put(file, damaged);
        EXPECT_TRUE(phones.all().empty());
    }
}

TEST(PhoneAddressTest, ReadsWhatItWrites)
{
    for (const char *text : {"phone", "mobile@phone", "phone:2222", "root@10.0.0.7:22", "fe80::1",
                             "[fe80::1]:2222", "mobile@fe80::1", "my_phone.local"}) {
        const auto address = PhoneAddress::parse(text);
        ASSERT_TRUE(address) << text;
        EXPECT_EQ(PhoneAddress::text(*address), text);
    }
    EXPECT_EQ(PhoneAddress::parse("[::1]")->host, "::1");
    for (const char *text : {"", "@phone", "phone:", "a b", "phone:x", "-x", "u@-x", "a;b", "$(x)",
                             "phone:65536", "phone\n", "[phone]:22"})
        EXPECT_FALSE(PhoneAddress::parse(text)) << text;
}
