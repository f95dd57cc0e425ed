#include "platform/foundation/NSLog.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NSLogTest, EveryMessageIsOneLine)
{
    const struct {
        QString format;
        std::initializer_list<QString> arguments;
        const char *expected;
    } cases[] = {
        {u"SAVING THEME..."_s, {}, "SAVING THEME...\n"},
        {u"%s"_s, {u"-[CustomViewController dealloc]"_s}, "-[CustomViewController dealloc]\n"},
        {u"path: %@"_s, {u"/a/ä %@ %%"_s}, "path: /a/ä %@ %%\n"},
        {u"%@ and %@, 100%% %d %"_s, {u"a"_s, u"b"_s, u"c"_s}, "a and b, 100% %d %\n"},
        {u"%@ %@"_s, {u"only"_s}, "only %@\n"},
        {u"%@"_s, {u"two\nlines\r\x1b[31m\u2028"_s}, "two\\nlines\\u000d\\u001b[31m\\u2028\n"},
    };
    for (const auto &[format, arguments, expected] : cases) {
        testing::internal::CaptureStderr();
        NSLog(format, arguments);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), expected);
    }
}
