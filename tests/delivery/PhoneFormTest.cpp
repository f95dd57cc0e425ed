#include "delivery/PhoneForm.h"

#include "delivery/PhoneAddress.h"

#include <gtest/gtest.h>

namespace
{
/// The phone that is meant, in one line, or what is wrong.
QString read(const PhoneForm &form)
{
    const auto [phone, problem] = form.read();
    return phone ? phone->name + " | " + PhoneAddress::text(phone->address) + " | " + phone->folder
                 : problem;
}
} // namespace

TEST(PhoneFormTest, MeansAPhoneOrSaysWhatIsWrong)
{
    const QString usual = "/var/mobile/Library/biteThemes";
    EXPECT_EQ(read({{}, " phone ", {}, {}, {}}), "phone | phone | " + usual);
    EXPECT_EQ(read({"Mine", "mobile@phone:2222", {}, {}, "/x"}), "Mine | mobile@phone:2222 | /x");
    EXPECT_EQ(read({"Mine", "mobile@phone:2222", "22", "root", " "}),
              "Mine | root@phone:22 | " + usual);
    EXPECT_EQ(read({{}, "fe80::1", "22", "me", "y"}), "me@[fe80::1]:22 | me@[fe80::1]:22 | y");

    EXPECT_EQ(read({"Mine", " ", {}, {}, {}}), "Type the phone's address, such as 192.168.1.20.");
    EXPECT_EQ(read({{}, "-oProxyCommand=x", {}, {}, {}}),
              "\"-oProxyCommand=x\" is no address of a phone.");
    for (const char *port : {"0", "65536", "ssh", "-1", "99999999999"})
        EXPECT_EQ(read({{}, "phone", port, {}, {}}), "A port is a number from 1 to 65535.");
    for (const char *user : {"a b", "x@y", "-l", "\xC3\xA9"})
        EXPECT_EQ(read({{}, "phone", {}, user, {}}),
                  QString("\"%1\" is no user's name.").arg(user));

    const RememberedPhone phone{"Mine", {"phone", 0, "mobile"}, "/x"};
    EXPECT_EQ(read(PhoneForm::of(phone)), "Mine | mobile@phone | /x");
}
