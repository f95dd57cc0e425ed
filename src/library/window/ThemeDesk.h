// What a screen of the window does with the user's own themes: keeping, opening, sharing and
// exporting them, each with its page over the stage.
//
// Files are read and written on queues. While a page waits for that it stays up and takes no second
// answer; without a page the screen's busy box is up. What came of it the screen's strip says.
#pragma once

#include "library/KeepChoices.h"
#include "library/window/NameEntry.h"
#include "library/window/OpenController.h"
#include "views/BackgroundWork.h"
#include "views/Question.h"
#include "views/ScreenWork.h"

#include <QMimeData>

#include <functional>

class UIViewController;

/// Main thread only. Make it the last member of the screen.
class ThemeDesk : public QObject
{
    Q_OBJECT

public:
    ThemeDesk(UIViewController &screen, ScreenOverlays &overlays, ScreenWork &busy,
              const QString &resources, const ThemeLocations &locations);

    /// Makes a package to pass on; called on a queue.
    using Package = std::function<NamedPackage()>;
    /// Of the current choices, of which this is a snapshot.
    Package packageOf(const ElementDataSource &choices) const;
    /// Of a kept theme, as it is then.
    Package packageOf(const QString &kept) const;

    /// Asks for a name and keeps the choices under it.
    void keep(const ElementDataSource &choices);
    /// Asks for a name on a page, and tries it on a queue until it will do.
    void askForName(const QString &title, const QString &verb, const QString &proposal,
                    NameEntry::Replacing replacing,
                    std::function<LibraryResult(const QString &, ThemeLibrary::IfTaken)> attempt);
    /// Shows the page with the text and the code.
    void share(const Package &package);
    /// Asks where, and writes it there; the proposal is for the file's name.
    void exportTheme(const Package &package, const QString &name);

    /// Asks which file, and opens that.
    void chooseFile();
    /// Opens what was dropped or copied: a file, a folder or a text. False where it is none that a
    /// theme can be in, or while the screen is not free.
    bool open(const QMimeData &data);
    /// Whether there is such a thing to open.
    static bool canOpen(const QMimeData &data);
    void openPath(const QString &path);
    /// The same with what the clipboard holds.
    bool openCopied();
    static bool canOpenCopied();

    /// Whether nothing else is going on over the screen.
    bool isFree() const;
    /// For the end of the program.
    void finish() { _work.finish(); }

signals:
    /// There is a theme of that name now, or it is another one.
    void kept(const QString &name);
    /// The kept theme is to become the current choices.
    void editWanted(const QString &name);

private:
    void open(const std::function<ThemeOpening(const ThemeOpener &)> &open);
    void showPending(const OpenController::Pending &pending);
    void finishKeeping(const OpenController &page, const LibraryResult &result);
    void writeExport(const Package &package, const QString &path, bool replaces);
    void present(std::shared_ptr<UIViewController> page);

    UIViewController &_screen;
    ScreenOverlays &_overlays;
    ScreenWork &_busy;
    const QString _resources;
    const ThemeLocations _locations;
    std::shared_ptr<Question> _question; // asked last
    BackgroundWork _work{"io.tintloom.themedesk"};
};
