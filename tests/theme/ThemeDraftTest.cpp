#include "theme/ThemeDraft.h"

#include "support/DraftFixture.h"

#include <QCoreApplication>

#include <atomic>
#include <semaphore>

using namespace Qt::StringLiterals;

namespace
{
using ThemeDraftTest = DraftFixture<ThemeFixture>;
} // namespace

TEST_F(ThemeDraftTest, OutlivesTheProgramAndComesBackAsOneStep)
{
    {
        ThemeDocument document(load());
        const DraftKeeper keeper(document, locations.documents);
        document.setColor(0, u""_s);
        document.chooseOption(2, u"B"_s);
        document.setColor(3, u"#123"_s);
        document.resetToDefault(3);
        document.setColor(1, u"#456"_s);
        EXPECT_FALSE(find()) << "it has an owner";
    }
    ThemeDocument document(load());
    auto keeper = std::make_unique<DraftKeeper>(document, locations.documents);
    auto draft = find();
    ASSERT_TRUE(draft);
    EXPECT_FALSE(find()) << "one program offers it";
    keeper->bringBack(std::move(draft), u"Bring Back"_s);
    EXPECT_EQ(document.record(0).color, QVariant(u""_s));
    EXPECT_EQ(document.record(2).value, QVariant(2LL));
    EXPECT_EQ(document.record(1).color, QVariant(u"#456"_s)); // not the other of that key
    EXPECT_EQ(document.record(3).color, QVariant(u""_s));
    keeper.reset();
    EXPECT_EQ(drafts(), QStringList(u""_s)); // the document's own, in place of the other

    keeper = std::make_unique<DraftKeeper>(document, locations.documents);
    document.undo();
    EXPECT_FALSE(document.canUndo());
    draft = find();
    ASSERT_TRUE(draft);
    keeper->discard(std::move(draft));
    keeper.reset();
    EXPECT_EQ(tree(locations.documents), QStringList(u"Drafts"_s));
}

TEST_F(ThemeDraftTest, ABurstCostsTwoWritesAndASaveTakesItAway)
{
    std::atomic<int> writes = 0;
    std::binary_semaphore gate(0);
    const FaultHookGuard guard([&](NSFileManager::Operation operation, const QString &) {
        if (operation == NSFileManager::Operation::Write && writes++ == 0)
            gate.acquire();
        return std::error_code();
    });
    ThemeDocument document(load());
    auto keeper = std::make_unique<DraftKeeper>(document, locations.documents);
    for (int step = 0; step < 100; ++step) {
        document.setColor(0, QString::number(step));
        if (step < 50)
            QCoreApplication::sendPostedEvents(); // one write waits for the disk, one for that
    }
    gate.release();
    keeper.reset();
    EXPECT_LE(writes, 2);
    EXPECT_EQ(drafts(), QStringList(u"99"_s));

    keeper = std::make_unique<DraftKeeper>(document, locations.documents);
    document.setColor(0, u"#1"_s);
    document.noteSaved(document.elements());
    keeper.reset();
    EXPECT_EQ(drafts(), QStringList(u"99"_s)); // that one has another owner
}

TEST_F(ThemeDraftTest, TheLatestOfManyIsOfferedAndNoneIsLost)
{
    abandon(u"#1"_s);
    QFile older(locations.documents + u'/' +
                tree(locations.documents).filter(u"/Draft.plist"_s).value(0));
    ASSERT_TRUE(older.open(QIODevice::ReadWrite));
    ASSERT_TRUE(older.setFileTime(QDateTime::currentDateTime().addDays(-1),
                                  QFileDevice::FileModificationTime));
    abandon(u"#2"_s);
    abandon(u"#F00"_s); // what stands anyway: no draft at all
    put(locations.documents + "/Drafts/strange/Draft.plist"_L1, "garbage");
    put(locations.documents + "/Drafts/odd/Draft.plist"_L1,
        "<plist><dict><key>changes</key><array><string>x</string><dict><key>key</key>"
        "<string>gone</string></dict></array></dict></plist>");
    put(locations.documents + "/Drafts/file"_L1, "not ours");
    ASSERT_TRUE(find());
    EXPECT_EQ(find()->changes().at(0).choice.color, QVariant(u"#2"_s));
    EXPECT_EQ(drafts(), QStringList({u"#1"_s, u"#2"_s}));
    EXPECT_EQ(contents(locations.documents + "/Drafts/strange/Draft.unreadable.plist"_L1),
              "garbage");
    EXPECT_EQ(contents(locations.documents + "/Drafts/file"_L1), "not ours");
    find()->remove();
    EXPECT_EQ(find()->changes().at(0).choice.color, QVariant(u"#1"_s));
}

TEST_F(ThemeDraftTest, WritesNothingBehindALink)
{
    QDir().mkpath(folder.filePath("elsewhere"));
    QDir().mkpath(locations.documents);
    QFile::link(folder.filePath("elsewhere"), locations.documents + "/Drafts"_L1);
    abandon(u"#1"_s);
    EXPECT_TRUE(QDir(folder.filePath("elsewhere")).isEmpty());
    EXPECT_FALSE(find());
}
