// Replays the fuzzers' seeds, which hold what once made a target fail.
#include "fuzz/FuzzTargets.h"
#include "support/Files.h"

namespace
{
class SeedsTest : public testing::TestWithParam<std::string>
{
};

/// What the target threw, or the empty string.
std::string complaint(const Fuzz::Target &target, const QByteArray &bytes)
{
    try {
        target(bytes);
        return {};
    } catch (const std::exception &error) {
        return error.what();
    }
}
} // namespace

TEST_P(SeedsTest, HoldWholeAndDamaged)
{
    const Fuzz::Target &target = Fuzz::targets().at(GetParam());
    const QString folder =
        QStringLiteral(TINTLOOM_FUZZ_SEEDS "/") + QString::fromStdString(GetParam());
    const QStringList seeds = tree(folder);
    ASSERT_FALSE(seeds.isEmpty()) << folder.toStdString();
    testing::internal::CaptureStderr(); // damaged documents are logged
    for (const QString &seed : seeds) {
        const QByteArray bytes = contents(folder + u'/' + seed);
        EXPECT_EQ(complaint(target, bytes), "") << seed.toStdString();
        const qsizetype step = bytes.size() / 200 + 1;
        for (qsizetype i = 0; i < bytes.size(); i += step) {
            EXPECT_EQ(complaint(target, bytes.first(i)), "")
                << seed.toStdString() << " cut at " << i;
            QByteArray damaged = bytes;
            damaged[i] = char(damaged[i] ^ (1 << i % 8));
            EXPECT_EQ(complaint(target, damaged), "") << seed.toStdString() << " changed at " << i;
        }
    }
    testing::internal::GetCapturedStderr();
}

INSTANTIATE_TEST_SUITE_P(All, SeedsTest, testing::ValuesIn([] {
                             std::vector<std::string> names;
                             for (const auto &[name, target] : Fuzz::targets())
                                 names.push_back(name);
                             return names;
                         }()),
                         [](const auto &info) { return info.param; });
