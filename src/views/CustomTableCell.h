// The editor's row: an element's name in a large line, its description in small type below, and a
// small caption at the top right.
#pragma once

#include "platform/UILabel.h"
#include "platform/UITableViewCell.h"

#include <QQmlEngine>

class CustomTableCell : public UITableViewCell
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UILabel *name READ name CONSTANT FINAL)
    Q_PROPERTY(UILabel *description READ description CONSTANT FINAL)
    Q_PROPERTY(UILabel *colorLabel READ colorLabel CONSTANT FINAL)
    Q_PROPERTY(bool locked READ isLocked NOTIFY lockedChanged FINAL)
    Q_PROPERTY(QString spokenLock READ spokenLock NOTIFY lockedChanged FINAL)
    Q_PROPERTY(QString finding READ finding NOTIFY findingChanged FINAL)
    Q_PROPERTY(QString spokenFinding READ spokenFinding NOTIFY findingChanged FINAL)

public:
    explicit CustomTableCell(QQuickItem *parent = nullptr);
    /// A new cell with its looks. Style and identifier are handed to the base.
    static CustomTableCell *initWithStyle(Style style, const QString &reuseIdentifier,
                                          QQmlEngine &engine);

    UILabel *name() { return &_name; }
    UILabel *description() { return &_description; }
    UILabel *colorLabel() { return &_colorLabel; }

    /// Shows a small lock at the row's right end.
    bool isLocked() const { return _locked; }
    void setLocked(bool locked);
    /// The same in words, on a line of its own; empty when it is not locked.
    QString spokenLock() const { return _locked ? '\n' + tr("Locked") : QString(); }

    /// What is hard to see, in words: shows a small sign left of where the lock is. Empty for none.
    QString finding() const { return _finding; }
    void setFinding(const QString &finding);
    QString spokenFinding() const { return _finding.isEmpty() ? QString() : '\n' + _finding; }

    void layoutSubviews() override;
    void setSelected(bool selected, bool animated) override;

signals:
    void lockedChanged();
    void findingChanged();

private:
    bool _locked = false;
    QString _finding;
    UILabel _name;
    UILabel _description;
    UILabel _colorLabel;
};
