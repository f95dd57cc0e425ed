#include "library/Archives.h"
#include "support/MadeArchive.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <set>

using made::tar;
using made::tarEntry;
using made::zip;

namespace
{
constexpr ArchiveLimits limits{1 << 20, 20, 2 << 20, 4};

struct ArchiveModuleTest : testing::Test {
    const ArchiveModule *module = Archives::module().module;

    void SetUp() override { ASSERT_TRUE(module) << Archives::module().problem.toStdString(); }

    std::string problem(const QByteArray &archive) const
    {
        const ArchiveReading reading = module->read(archive, limits);
        EXPECT_NE(reading.problem.isEmpty(), reading.entries.empty());
        return reading.problem.toStdString();
    }
};

bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}
} // namespace

TEST_F(ArchiveModuleTest, ReadsWhatItWritesAndWritesTheSameBytes)
{
    std::vector<ArchiveEntry> entries{{"Info.plist", "text"}, {"empty", ""}};
    entries.push_back({QString::fromUtf8("UIKit/é漢😀 (1).png"), QByteArray("\0\xFF\n", 3)});
    entries.push_back({QString(150, 'l') + "/x", QByteArray(100'000, 'a')});
    for (const auto form : {ArchiveModule::Form::Zip, ArchiveModule::Form::TarGzip}) {
        const QByteArray bytes = module->write(entries, form);
        ASSERT_FALSE(bytes.isEmpty());
        EXPECT_LT(bytes.size(), 10'000) << "nothing was compressed";
        qputenv("TZ", "Asia/Tokyo");
        tzset();
        EXPECT_EQ(module->write(entries, form), bytes);
        qunsetenv("TZ");
        tzset();
        const ArchiveReading reading = module->read(bytes, limits);
        EXPECT_EQ(reading.problem, "");
        ASSERT_EQ(reading.entries.size(), entries.size());
        for (size_t i = 0; i < entries.size(); ++i) {
            EXPECT_EQ(reading.entries[i].path, entries[i].path);
            EXPECT_EQ(reading.entries[i].bytes, entries[i].bytes);
        }
        for (qsizetype end = 0; end < bytes.size() - 1; end += 7)
            EXPECT_NE(problem(bytes.first(end)), "") << end;
    }
}

TEST_F(ArchiveModuleTest, ReadsOtherToolsArchives)
{
    for (const QByteArray &archive :
         {tar({tarEntry("./", "", '5'), tarEntry("./a/", "", '5'), tarEntry("./a/b", "x")}),
          made::gzip(tar({tarEntry("a/b", "x")})),
          zip({{"a/", "", 0, 0040755}, {"a/b", "x", 0, 0}})}) {
        const ArchiveReading reading = module->read(archive, limits);
        EXPECT_EQ(reading.problem, "");
        ASSERT_EQ(reading.entries.size(), 1U);
        EXPECT_EQ(reading.entries[0].path, "a/b");
        EXPECT_EQ(reading.entries[0].bytes, "x");
    }
    const ArchiveReading named =
        module->read(zip({{"\xC3\xA9", "x", 0x800}, {"\xE6\xBC\xA2", "y"}}), limits);
    ASSERT_EQ(named.entries.size(), 2U) << named.problem.toStdString();
    EXPECT_EQ(named.entries[0].path, QString::fromUtf8("é"));
    EXPECT_EQ(named.entries[1].path, QString::fromUtf8("漢")) << "not marked as UTF-8";
}

TEST_F(ArchiveModuleTest, RefusesHostileArchivesAndNamesTheEntry)
{
    const QByteArray good = tarEntry("good", "x");
    const QByteArray many = [] {
        QByteArray entries;
        for (int i = 0; i <= limits.entries; ++i)
            entries += tarEntry("n" + QByteArray::number(i), "");
        return entries;
    }();
    const struct {
        QByteArray archive;
        std::string told; // parts, between bars
    } cases[] = {
        {tar({good, tarEntry("/etc/passwd", "x")}), "\"/etc/passwd\"|absolute"},
        {tar({good, tarEntry("a/../../b", "x")}), "\"a/../../b\"|leads out"},
        {tar({tarEntry("..", "", '5')}), "\"..\"|leads out"},
        {tar({tarEntry("soft", "", '2', "/etc")}), "\"soft\"|link"},
        {tar({good, tarEntry("hard", "", '1', "good")}), "\"hard\"|link"},
        {tar({tarEntry("character", "", '3')}), "\"character\"|neither"},
        {tar({tarEntry("block", "", '4')}), "\"block\"|neither"},
        {tar({tarEntry("pipe", "", '6')}), "\"pipe\"|neither"},
        {tar({good, tarEntry("./good", "y")}), "\"./good\"|twice"},
        {tar({good, tarEntry("good/below", "y")}), "\"good/below\"|in a file"},
        {tar({tarEntry("up/on", "y"), tarEntry("up", "y")}), "\"up\"|twice"},
        {tar({tarEntry("a/b/c/d/e", "y")}), "\"a/b/c/d/e\"|4 levels"},
        {tar({tarEntry("bad\xFFname", "y")}), "entry 1|no text"},
        {tar({tarEntry("line\nbreak", "y")}), "\"line?break\"|control"},
        {tar({many}), "\"n20\"|20 entries"},
        {tar({tarEntry("huge", "x", '0', {}, 1LL << 32)}), "\"huge\""},
        {tar({tarEntry("folder", "x", '5', {}, 1LL << 32), QByteArray(3 << 18, 'x')}), "damaged"},
        {zip({{"/absolute", "x"}}), "\"/absolute\"|absolute"},
        {zip({{"a/../../b", "x"}}), "leads out"},
        {zip({{"soft", "/etc", 0, 0120777}}), "\"soft\"|link"},
        {zip({{"device", "", 0, 0020644}}), "\"device\"|neither"},
        {zip({{"twice", "x"}, {"twice", "x"}}), "\"twice\"|twice"},
        {zip({{"secret", QByteArray(40, 'x'), 1}}), "\"secret\"|encrypted"},
        {zip({{"a/b/c/d/e", "x"}}), "\"a/b/c/d/e\"|4 levels"},
        {zip({{"damaged", "x"}}).replace("damagedx", "damagedy"), "\"damaged\"|unpacked"},
        {QByteArray((1 << 20) + 1, 'x'), "larger than 1 MB"},
        {QByteArray(100'000, 'x'), "no archive"},
        {made::gzip(made::gzip(tar({good}))), "no archive"},
        {QByteArray(), "no archive"},
    };
    for (const auto &[archive, told] : cases) {
        const std::string problem = this->problem(archive);
        for (const QString &part : QString::fromStdString(told).split('|'))
            EXPECT_TRUE(contains(problem, part.toStdString())) << told << ": " << problem;
    }
}

TEST_F(ArchiveModuleTest, RefusesBombsBeforeTheyGoOff)
{
    const QByteArray zeros(1 << 20, '\0');
    const auto packed =
        module->write({{"a", zeros}, {"b", zeros}, {"bomb", "x"}}, ArchiveModule::Form::Zip);
    EXPECT_LT(packed.size(), 10'000);
    EXPECT_TRUE(contains(problem(packed), "\"bomb\" makes the archive larger than 2 MB"));
    EXPECT_TRUE(contains(problem(made::gzip(tar({tarEntry("zeros", QByteArray(3 << 20, '\0'))}))),
                         "\"zeros\""));
    QByteArray sparse = tarEntry("sparse", "x", 'S'); // one byte that claims to stand far behind
    sparse.replace(386, 12, "77777777000")
        .replace(398, 12, "00000000001")
        .replace(483, 12, "77777777001");
    EXPECT_NE(problem(tar({sparse})), "");
    // A directory of a hundred thousand entries that are all the same file.
    QByteArray directory = zip({{"x", ""}});
    const qsizetype start = directory.indexOf("PK\1\2"), end = directory.indexOf("PK\5\6");
    directory.insert(end, directory.sliced(start, end - start).repeated(21'000));
    EXPECT_TRUE(contains(problem(directory), "entries"));
}

TEST_F(ArchiveModuleTest, DrawsACodeAsTheStandardHasIt)
{
    const QrModules code = module->qrCode("tintloom:1:AbC-_");
    ASSERT_EQ(code.size, 25) << "version 2 takes 26 bytes at this level";
    ASSERT_EQ(code.dark.size(), 625U);
    const auto dark = [&](int x, int y) { return bool(code.dark[size_t(y * code.size + x)]); };
    for (const auto &[left, top] : {std::pair(0, 0), std::pair(18, 0), std::pair(0, 18)})
        for (int y = 0; y < 7; ++y)
            for (int x = 0; x < 7; ++x) // the three finders: rings around a middle
                EXPECT_EQ(dark(left + x, top + y), std::max(std::abs(x - 3), std::abs(y - 3)) != 2);
    EXPECT_FALSE(dark(7, 0) || dark(0, 7) || dark(7, 24));
    for (int i = 8; i < 17; ++i)
        EXPECT_EQ(dark(i, 6), i % 2 == 0) << "timing";
    EXPECT_NE(module->qrCode("tintloom:1:AbC-A").dark, code.dark);
    EXPECT_EQ(module->qrCode(QByteArray(5000, 'x')).size, 0);
}
