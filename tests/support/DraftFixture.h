// Drafts in a documents folder of a test's own. `Base` is ThemeFixture or one that builds on it.
#pragma once

#include "support/ThemeFixture.h"
#include "theme/ThemeDraft.h"

template <typename Base>
struct DraftFixture : Base {
    void SetUp() override
    {
        this->putElements({element("first", "\"#F00\""), element("twice", "null"),
                           element("choice", "null", "{\"A\":1,\"B\":2}", "1"),
                           element("twice", "\"\""), element("list-background-image", "\"#FFF\""),
                           element("unread-indicator-image", "\"#FFF\"")});
    }

    std::shared_ptr<AbandonedDraft> find()
    {
        return AbandonedDraft::find(this->locations.documents, this->load());
    }
    /// Leaves a draft as a program does that ends.
    void abandon(const QString &color)
    {
        ThemeDocument document(this->load());
        const DraftKeeper keeper(document, this->locations.documents);
        document.setColor(0, color);
    }
    /// Drafts on the disk, by the colours of the first element in them.
    QStringList drafts() const
    {
        QStringList colors;
        for (const QString &path : tree(this->locations.documents)) {
            if (!path.endsWith(QLatin1String("/Draft.plist")))
                continue; // a killed write leaves a file of another name
            const auto draft =
                PropertyList::readDictionary(contents(this->locations.documents + u'/' + path));
            const auto changes = draft ? draft->find("changes")->toList() : QVariantList();
            colors += changes.value(0).toMap().value("color", "not whole").toString();
        }
        colors.sort();
        return colors;
    }
};
