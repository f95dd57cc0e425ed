// Replays the fuzzers' seeds, which hold what once made a target fail.
#include "fuzz/FuzzTargets.h"
#include "support/Files.h"

namespace
{
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

TEST(SeedsTest, HoldWholeAndDamaged)
{
    testing::internal::CaptureStderr(); // damaged documents are logged
    for (const auto &[name, target] : Fuzz::targets()) {
        const QString folder = TINTLOOM_FUZZ_SEEDS "/" + QString::fromStdString(name);
        const QStringList seeds = tree(folder);
        EXPECT_FALSE(seeds.isEmpty()) << name;
        for (const QString &seed : seeds) {
            SCOPED_TRACE(name + '/' + seed.toStdString());
            const QByteArray bytes = contents(folder + '/' + seed);
            EXPECT_EQ(complaint(target, bytes), "");
            const qsizetype step = bytes.size() / 200 + 1;
            for (qsizetype i = 0; i < bytes.size(); i += step) {
                EXPECT_EQ(complaint(target, bytes.first(i)), "") << "cut at " << i;
                QByteArray damaged = bytes;
                damaged[i] = char(damaged[i] ^ (1 << i % 8));
                EXPECT_EQ(complaint(target, damaged), "") << "changed at " << i;
            }
        }
    }
    testing::internal::GetCapturedStderr();
}
