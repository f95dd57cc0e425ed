// What can be done with a kept theme in the catalogue beyond installing and editing it.
#pragma once

#include "library/window/ThemeDesk.h"
#include "views/Action.h"

#include <memory>

class KeptThemeMenu : public QObject
{
    Q_OBJECT

public:
    KeptThemeMenu(ThemeDesk &desk, ScreenOverlays &overlays, const ThemeLocations &locations);

    /// Shows the sheet of that theme.
    void show(const QString &name);
    /// For the end of the program.
    void finish() { _work.finish(); }

signals:
    /// The kept themes are others now; the name is of the one that came or changed, or empty.
    void changed(const QString &name);

private:
    Actions actions(const QString &name);
    void rename(const QString &name);
    void duplicate(const QString &name);
    void remove(const QString &name);
    void putBack(const QString &name);
    /// Says what came of a change, with what can be done about it.
    void tell(const LibraryResult &result, const QString &changedName, Actions actions = {});

    ThemeDesk &_desk;
    ScreenOverlays &_overlays;
    const ThemeLocations _locations;
    std::shared_ptr<ActionMenu> _menu; // shown last
    BackgroundWork _work{"io.tintloom.keptthemes"};
};
