// The page of colours at hand: those that were used last, and those in the theme, one tap each; and
// those on the screen, where the desktop lets one pick there.
#pragma once

#include "platform/ScreenColorPicker.h"
#include "platform/UITableView.h"
#include "platform/UIViewController.h"
#include "theme/ColorsAtHand.h"

class ColorsController final : public UIViewController,
                               public UITableViewDataSource,
                               public UITableViewDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the editor")
    Q_PROPERTY(bool picksFromScreen READ picksFromScreen NOTIFY picksFromScreenChanged FINAL)

public:
    static std::shared_ptr<ColorsController> init(const QStringList &recent,
                                                  std::vector<ColorsAtHand::Color> inTheme);

    void viewDidLoad() override;
    int numberOfSectionsInTableView() const override { return int(_sections.size()); }
    QString titleForHeaderInSection(int section) const override;
    int numberOfRowsInSection(int section) const override;
    UITableViewCell *cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath) override;
    double heightForRowAtIndexPath(NSIndexPath) const override { return 50.0; }
    void willDisplayHeaderView(UITableViewHeader &header, int section) override;
    void didSelectRowAtIndexPath(NSIndexPath indexPath) override;
    void didDeselectRowAtIndexPath(NSIndexPath) override {}

    bool picksFromScreen() const { return _screen.isAvailable(); }
    /// What is picked there is chosen.
    Q_INVOKABLE void pickFromScreen();

signals:
    void picksFromScreenChanged();
    /// The page's button was pressed, or Escape.
    void closeTapped();
    void chosen(const QString &colorText);

protected:
    const char *viewFile() const override { return "chooser/ColorsView.qml"; }

private:
    struct Section {
        QString title;
        std::vector<ColorsAtHand::Color> colors;
    };
    ColorsController();
    const ColorsAtHand::Color &colorAt(NSIndexPath row) const;

    ScreenColorPicker _screen;
    std::vector<Section> _sections; // none of them empty
};
