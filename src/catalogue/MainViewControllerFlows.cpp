// The two flows of the catalogue that work on files: installing a theme, and sending it to the
// editor.
#include "catalogue/MainViewController.h"
#include "platform/foundation/NSLog.h"

void MainViewController::save()
{
    NSLog("SAVING THEME... %@", {_clickedTheme});
    _overlays->setNotice({});
    showLoaderWithLabel("Saving theme...");
    _saveFileQueue->async([self = self(), theme = _clickedTheme] {
        ThemeInstallation installation =
            beginInstalling(self->_folders.resources, theme, self->_folders.theme);
        MainQueue::async([self, theme, installation = std::move(installation)] {
            self->finishSave(installation, theme);
        });
    });
}

void MainViewController::finishSave(const ThemeInstallation &installation, const QString &theme)
{
    if (!finishCopying(installation, theme))
        return;
    showAlert(std::make_unique<UIAlertView>(
        "Saved",
        QString("%1 has been saved. Check biteSMS for \"Tintloom\" under themes then select "
                "\"Apply Theme\".")
            .arg(theme),
        std::weak_ptr<UIAlertViewDelegate>(), QStringList{"OK"}));
}

void MainViewController::editPredefinedTheme()
{
    NSLog("SAVING PREDEFINED THEME... %@", {_clickedTheme});
    _overlays->setNotice({});
    showLoaderWithLabel("Saving theme...");
    _saveFileQueue->async([self = self(), theme = _clickedTheme] {
        // The next editor shall read the new working copy. Nobody else looks at this one now: it is
        // off the screen, and the busy box is up.
        self->_customViewController.reset();
        ThemeInstallation installation =
            beginEditing(self->_folders.resources, theme, self->_folders.theme);
        MainQueue::async([self, theme, installation = std::move(installation)] {
            self->finishEditing(installation, theme);
        });
    });
}

void MainViewController::finishEditing(const ThemeInstallation &installation, const QString &theme)
{
    if (!finishCopying(installation, ThemeRecord::ownTheme()))
        return;
    auto alert = std::make_unique<UIAlertView>(
        "Saved", QString("%1 has been saved as your custom theme.").arg(theme), self(),
        QStringList{"OK"});
    alert->setTag(EditedTag);
    showAlert(std::move(alert));
}

bool MainViewController::finishCopying(const ThemeInstallation &installation,
                                       const QString &selected)
{
    SaveReport report = copyTheme(installation);
    const bool isDone = report.refusal.isEmpty();
    if (isDone)
        report.addFailure(_folders.theme.preferences(), setSelectedTheme(selected));
    removeLoader();
    _overlays->showOutcome(report.notice(), report.copyFrom(_folders.theme));
    return isDone;
}

void MainViewController::showAlert(std::unique_ptr<UIAlertView> alertView)
{
    _alertView = alertView.get();
    UIAlertView::show(std::move(alertView));
}

void MainViewController::showLoaderWithLabel(const QString &label)
{
    _tableView->setScrollEnabled(false);
    _tableView->setAllowsSelection(false);
    _overlays->showLoaderWithLabel(label);
}

void MainViewController::removeLoader()
{
    _tableView->setScrollEnabled(true);
    _tableView->setAllowsSelection(true);
    _overlays->removeLoader();
}
