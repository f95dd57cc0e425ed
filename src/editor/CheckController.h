// The page that lists what is hard to see in a theme, the two colours of each finding shown, leads
// to the rows, and mends all of it in one step.
//
// It lies over the editor and follows its document. After a repair it lists what is left, and why.
#pragma once

#include "advice/FixAll.h"
#include "platform/UITableView.h"
#include "platform/UIViewController.h"

#include <QTimer>

class CheckController final : public UIViewController,
                              public UITableViewDataSource,
                              public UITableViewDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the editor")
    Q_PROPERTY(QString summary READ summary NOTIFY listed FINAL)
    Q_PROPERTY(bool mendable READ isMendable NOTIFY listed FINAL)
    Q_PROPERTY(bool mended READ isMended NOTIFY listed FINAL)

public:
    /// The document must outlive the page.
    static std::shared_ptr<CheckController> init(ThemeDocument &document);

    /// What to say in place of a list; empty while there is one.
    QString summary() const;
    /// Whether "Fix All" may help.
    bool isMendable() const { return !_findings.empty() && _left.empty(); }
    /// Whether it was the last to change anything, which can be taken back.
    bool isMended() const { return _isMended; }

    Q_INVOKABLE void fixAllTapped();
    Q_INVOKABLE void undoTapped();
    /// The keys that undo.
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers) override;

    void viewDidLoad() override;
    int numberOfSectionsInTableView() const override { return _findings.empty() ? 0 : 1; }
    QString titleForHeaderInSection(int section) const override;
    int numberOfRowsInSection(int) const override { return int(_findings.size()); }
    UITableViewCell *cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath) override;
    double heightForRowAtIndexPath(NSIndexPath) const override { return 50.0; }
    void willDisplayHeaderView(UITableViewHeader &header, int section) override;
    void didSelectRowAtIndexPath(NSIndexPath indexPath) override;
    void didDeselectRowAtIndexPath(NSIndexPath) override {}

signals:
    void listed();
    /// The page's button was pressed, or Escape.
    void closeTapped();
    /// The row of that element is wanted.
    void chosen(int index);

protected:
    const char *viewFile() const override { return "editor/CheckView.qml"; }

private:
    explicit CheckController(ThemeDocument &document);
    /// Looks at the whole theme.
    void list();
    void show();

    ThemeDocument &_document;
    std::vector<Finding> _findings;
    std::vector<FixedTheme::Reason> _left; // of each finding, after a repair; else empty
    bool _isMended = false;
    std::optional<ThemeColors> _colors;
    UITableView *_table = nullptr; // the view's
    QTimer _later{this};
};
