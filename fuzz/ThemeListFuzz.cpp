// The list of ready-made themes.
#include "catalogue/ThemeList.h"
#include "fuzz/FuzzTargets.h"

#include <QSet>

void Fuzz::themeList(const QByteArray &bytes)
{
    const QString resources = QStringLiteral("/resources");
    const ThemeList list = ThemeList::parse(bytes, QStringLiteral("list"));
    require(list.problem().isEmpty() || list.numberOfSections() == 0, "nothing is taken by halves");
    QSet<QString> titles;
    for (int section = 0; section < list.numberOfSections(); ++section) {
        titles.insert(list.titleForSection(section));
        require(list.numberOfRowsInSection(section) > 0, "no section is empty");
        for (int row = 0; row < list.numberOfRowsInSection(section); ++row) {
            const ThemeRecord &record = list.record(section, row);
            require(record.section == list.titleForSection(section), "rows stand where they say");
            require(list.find(record.name) != nullptr, "every theme is found");
            require(record.active || record.isOwnTheme() || record.subtitle() != record.details ||
                        record.details == u"Coming soon!",
                    "what cannot be chosen is announced");
        }
    }
    require(titles.size() == list.numberOfSections(), "titles are unique");
    for (const QString &name : list.installableNames()) {
        const auto folder = themeResourceFolder(resources, name);
        require(!folder || (folder->startsWith(resources + u'/') && !folder->contains(u"/../") &&
                            !folder->endsWith(u"/..") && folder->count(u'/') == 2),
                "no name leads out of the resource folder");
    }
}
