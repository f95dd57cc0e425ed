#include "advice/FixAll.h"

#include "support/ThemeFixture.h"

#include <random>

using Reason = FixedTheme::Reason;

namespace
{
using Choices = QMap<QString, QString>;

ElementDataSource shipped(const Choices &choices)
{
    PropertyDictionary saved;
    for (auto choice = choices.begin(); choice != choices.end(); ++choice)
        saved.setValue(choice.key(), choice.value());
    return ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, &saved);
}

std::set<int> indexes(const ElementDataSource &elements, const QStringList &keys)
{
    std::set<int> found;
    for (const QString &key : keys)
        found.insert(elements.indexesOfKey(key).at(0));
    return found;
}

std::string changed(const ElementDataSource &elements, const FixedTheme &fixed)
{
    QStringList keys;
    for (const auto &change : fixed.changes)
        keys += elements.tableSource()[size_t(change.index)].key;
    return keys.join(" ").toStdString();
}

ThemeColors applied(const ElementDataSource &elements, const FixedTheme &fixed)
{
    ThemeColors colors(elements);
    for (const auto &[index, choice] : fixed.changes)
        colors.setColorText(index, choice.color.toString());
    return colors;
}

/// No finding is left that is not accounted for, no locked element changes, and no change can be
/// left out.
FixedTheme expectMended(const ElementDataSource &elements, const std::set<int> &locked)
{
    FixedTheme fixed = fixAll(elements, locked);
    ThemeColors colors = applied(elements, fixed);
    std::vector<Finding> left;
    for (const auto &[finding, reason] : fixed.left) {
        left.push_back(finding);
        EXPECT_TRUE(reason == Reason::NoColor || locked.contains(finding.element) ||
                    locked.contains(finding.on));
    }
    EXPECT_EQ(findings(colors), left);
    for (const auto &[index, choice] : fixed.changes) {
        EXPECT_FALSE(locked.contains(index));
        colors.setColor(index, ThemeColors(elements).color(index));
        EXPECT_TRUE(std::ranges::any_of(
            findings(colors),
            [&left](const Finding &finding) {
                return std::ranges::none_of(left, [&finding](const Finding &other) {
                    return other.element == finding.element && other.on == finding.on &&
                           other.eyes == finding.eyes && other.threshold == finding.threshold;
                });
            }))
            << index << " changed for nothing";
        colors.setColorText(index, choice.color.toString());
    }
    return fixed;
}
} // namespace

TEST(FixAll, ChangesTextBeforeGroundsAndLockedElementsNever)
{
    const std::string text = "balloon-text-color", green = "green-balloon-colors_2";
    // Text that can be read on all balloons, then a balloon when there is no such text.
    const auto grey = shipped({{"balloon-text-color", "#606060"}});
    EXPECT_EQ(changed(grey, fixAll(grey, {})), text);
    const auto dark = shipped({{"green-balloon-colors_2", "#102810"}});
    EXPECT_EQ(changed(dark, fixAll(dark, {})), green);
    EXPECT_TRUE(fixAll(dark, {}).left.empty());
    // A locked text, a locked ground, and both.
    const auto faint = shipped({{"timestamp-color", "#C0C8C4"}});
    const QString chat = "conversation-background-color";
    EXPECT_EQ(changed(faint, fixAll(faint, indexes(faint, {chat}))), "timestamp-color");
    EXPECT_EQ(changed(faint, fixAll(faint, indexes(faint, {"timestamp-color"}))),
              chat.toStdString());
    const FixedTheme stuck = fixAll(faint, indexes(faint, {"timestamp-color", chat}));
    EXPECT_TRUE(stuck.changes.empty());
    ASSERT_EQ(stuck.left.size(), 1U);
    EXPECT_EQ(stuck.left[0].reason, Reason::Locked);
    EXPECT_TRUE(fixAll(shipped({}), {}).changes.empty());
    EXPECT_TRUE(fixAll(ElementDataSource(), {}).changes.empty());
}

TEST(FixAll, LeavesNothingOfRandomThemesUnsaidAndChangesNoMoreThanItMust)
{
    std::mt19937 random(11);
    ThemeDocument document(shipped({}));
    int changes = 0, left = 0;
    for (int round = 0; round < 500; ++round) {
        SCOPED_TRACE(round);
        ThemeDocument::Changes choices;
        std::set<int> locked;
        for (int index = 0; index < document.count(); ++index) {
            const ElementRecord &record = document.record(index);
            if (record.isChoice() || random() % 4 == 0)
                continue;
            const unsigned alpha = random() % 4 == 0 ? random() % 256 : 255;
            choices.push_back(
                {index,
                 {random() % 8 == 0
                      ? QString("")
                      : QString::asprintf("#%06X%02X", unsigned(random() & 0xFFFFFF), alpha),
                  {}}});
            if (round % 2 && random() % 3 == 0)
                locked.insert(index);
        }
        document.changeAll(choices, "random");
        const FixedTheme fixed = expectMended(document.elements(), locked);
        changes += int(fixed.changes.size());
        if (locked.empty())
            left += int(fixed.left.size());
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(changes, 1000);
    EXPECT_EQ(left, 0) << "of themes in which everything may change";
}

TEST(FixAll, LeavesNothingOfRandomDocumentsUnsaid)
{
    std::mt19937 random(5);
    const auto oneOf = [&random](const QByteArrayList &list) {
        return list[qsizetype(random() % size_t(list.size()))];
    };
    int changes = 0, left = 0;
    for (int round = 0; round < 2000; ++round) {
        SCOPED_TRACE(round);
        const unsigned count = 2 + random() % 5;
        const unsigned rare = round % 8 ? 9 : 3; // in few of them nearly all stands on all
        QByteArrayList keys, items;
        for (unsigned index = 0; index < count; ++index)
            keys += random() % 3 ? "key-" + QByteArray::number(index)
                                 : oneOf({"green-balloon-colors_1", "green-balloon-colors_2",
                                          "list-background-image", "unread-indicator-image",
                                          "list-name-color", "unread-name-color"});
        std::set<int> locked;
        for (unsigned index = 0; index < count; ++index) {
            const QByteArray color = QByteArray::number(random() & 0xFFFFFF, 16);
            QByteArrayList grounds;
            for (const char *kind : {"text", "large", "mark", "behind"})
                if (random() % rare == 0) // itself and what stands on it among them
                    grounds += QByteArray("\"") + kind + "\":[\"" + oneOf(keys) + "\",\"" +
                               oneOf(keys) + "\"]";
            items += element(keys[index], random() % 8 == 0 ? "\"\""
                                                            : "\"#" + color.rightJustified(6, '0') +
                                                                  oneOf({"", "", "40", "C0"}) + '"')
                         .chopped(1) +
                     ",\"on\":{" + grounds.join(',') + "}}";
            if (round % 2 && random() % 3 == 0)
                locked.insert(int(index));
        }
        testing::internal::CaptureStderr(); // grounds that are none are logged
        const auto elements =
            ElementDataSource::parse('[' + items.join(',') + ']', "random", nullptr);
        testing::internal::GetCapturedStderr();
        ASSERT_EQ(elements.tableSource().size(), count);
        const FixedTheme fixed = expectMended(elements, locked);
        changes += int(fixed.changes.size());
        left += int(fixed.left.size());
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(changes, 1000);
    EXPECT_GT(left, 100) << "otherwise nothing has shown that reasons are given";
}
