// The list of remembered phones, one of them chosen: the one to which a theme goes.
#pragma once

#include "delivery/RememberedPhones.h"
#include "platform/UITableView.h"

#include <QObject>

class SendPhones : public QObject, public UITableViewDataSource, public UITableViewDelegate
{
    Q_OBJECT

public:
    explicit SendPhones(const QString &documents);

    void setTable(UITableView &table, QQmlEngine &engine);

    bool isEmpty() const { return _phones.empty(); }
    /// At first the one used last; null when there is none.
    const RememberedPhone *chosen() const;

    // Each returns why it was not done, a sentence for people; else empty.
    /// In the place of the one with the old name, where that is not empty; it is the chosen one
    /// then. No two bear the same name.
    QString save(const RememberedPhone &phone, const QString &oldName);
    /// The chosen one, which is the one used last from then on.
    QString noteUsed();
    QString removeChosen();
    QString undoRemove();
    /// The name of what was removed last; empty: nothing can be put back.
    QString removed() const { return _removed ? _removed->name : QString(); }

    int numberOfSectionsInTableView() const override { return 1; }
    QString titleForHeaderInSection(int) const override { return tr("Phones"); }
    int numberOfRowsInSection(int) const override { return int(_phones.size()); }
    UITableViewCell *cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath) override;
    double heightForRowAtIndexPath(NSIndexPath) const override { return 50.0; }
    void willDisplayHeaderView(UITableViewHeader &header, int section) override;
    void didSelectRowAtIndexPath(NSIndexPath indexPath) override;
    void didDeselectRowAtIndexPath(NSIndexPath) override {}
    bool showMenuForRowAtIndexPath(NSIndexPath indexPath) override;

signals:
    /// What can be done with the chosen one is wanted.
    void menuWanted();

private:
    void choose(int row);
    QString remember(const RememberedPhone &phone);
    void load();

    const QString _documents;
    const RememberedPhones _remembered{_documents};
    std::vector<RememberedPhone> _phones; // as they are remembered
    std::optional<RememberedPhone> _removed;
    int _chosen = 0;
    UITableView *_table = nullptr;
    QQmlEngine *_engine = nullptr;
};
