// Where a theme lies on the disk.
//
//   <package root>/Tintloom/Info.plist                      the theme dictionary, XML
//   <package root>/Tintloom/ListBackground@2x.jpg           640 x 1136 points in the list's colour
//   <package root>/Tintloom/UIKit/UnreadIndicator@2x.png    24 x 24 points; JPEG, as on the phone
//   <documents>/Tintloom/Info.plist            the working copy, the same dictionary
//   <documents>/Tintloom/Info.saving.plist     the old one, only during a save
//   <documents>/Tintloom/Info.previous.plist   the one before, for "restore"
//   <documents>/Tintloom/Picture-<SHA-256>.jpg pictures to which these lead
//   <documents>/Preferences.plist              which theme is installed
#pragma once

#include <QString>

/// Of all that is written into a package: any user of the phone may read and replace it.
constexpr unsigned packagePermissions = 0777;

struct ThemeLocations {
    QString packageRoot;
    QString documents;

    /// The folder in which biteSMS finds themes.
    static QString phonePackageRoot() { return QStringLiteral("/var/mobile/Library/biteThemes"); }
    /// Anywhere else, the theme has still to be copied onto the phone.
    bool isOnPhone() const { return packageRoot == phonePackageRoot(); }

    QString packageFolder() const { return packageRoot + QLatin1String("/Tintloom"); }
    QString packageInfo() const { return packageFolder() + QLatin1String("/Info.plist"); }
    QString listBackground() const
    {
        return packageFolder() + QLatin1String("/ListBackground@2x.jpg");
    }
    QString indicatorFolder() const { return packageFolder() + QLatin1String("/UIKit"); }
    QString unreadIndicator() const
    {
        return indicatorFolder() + QLatin1String("/UnreadIndicator@2x.png");
    }
    QString workingCopyFolder() const { return documents + QLatin1String("/Tintloom"); }
    QString preferences() const { return documents + QLatin1String("/Preferences.plist"); }
    QString workingCopy() const { return workingCopyFolder() + QLatin1String("/Info.plist"); }
    QString workingCopyAside() const
    {
        return workingCopyFolder() + QLatin1String("/Info.saving.plist");
    }
    QString earlierWorkingCopy() const
    {
        return workingCopyFolder() + QLatin1String("/Info.previous.plist");
    }
};
