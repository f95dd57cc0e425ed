// A theme in the phone's folder of themes: how a new one takes the place of the old one.
//
//   <folder>/<name>                               the theme
//   <folder>/.<name>.previous                     the one before, to be put back
//   <folder>/.Tintloom.part-0123456789abcdef      the one that is under way, or on its way out
//
// A new theme is sent beside the old one, and looked at there. Then three renames follow one
// another: the one before goes out of the way, the old one becomes the one before, the new one the
// theme. They are sent together, so that a connection which is cut carries all of them or none. Has
// the phone's server still ended between them, which it may when nobody is left to answer to, there
// is no theme but one before: whoever comes next makes that the theme again.
//
// Who sends, looks first for what others have left under way, makes a folder of its own after
// that, and removes the others' meanwhile, which are renamed before anything in them is touched. So
// of several senders at once at least one succeeds, none puts half a theme in place, and the ones
// that fail are told.
//
// Only these names are touched, and none of them where it is a link or somebody else's.
#pragma once

#include "delivery/RemoteTree.h"
#include "delivery/ThemeUpload.h"

#include <vector>

class RemoteThemes
{
public:
    /// The folder is absolute, or relative to where the phone lets its user in; the name is one of
    /// a folder.
    RemoteThemes(SftpSession &session, const QString &folder, const QString &name);

    /// Sees what is there, and puts right what was left between two renames. The session has begun.
    bool look();
    /// Sends the files beside the old theme.
    bool upload(const ThemeUpload::Files &files, const ThemeUpload::Progress &progress);
    /// Puts the new theme in the place of the old one. Once it has begun, no cancel stops it.
    bool exchange();
    /// Exchanges the theme and the one before; without a theme, the one before becomes it.
    bool putBack();
    /// Removes what is left, as far as the session still carries it. After any of the above.
    void tidyUp();

    bool hasPrevious() const { return _previous.kind == Kind::Folder; }
    /// Why the last of the above did not succeed, for people; empty where the session has ended.
    const QString &problem() const { return _problem; }

private:
    enum class Kind { Nothing, Folder, Refused };
    struct Place {
        QByteArray path;
        Kind kind = Kind::Nothing;
        std::optional<quint32> owner;
    };
    struct Renaming {
        QByteArray from, to;
        SftpReply reply;
    };

    void take(Place &place, const SftpReply &reply);
    bool restoreAfterCut();
    void findLeftovers();
    void makePart(const std::function<void()> &then);
    bool removeLeftovers();
    bool belongsToUs(const Place &place) const;
    bool allBelongToUs();
    /// In one go; true when all were done.
    bool rename(std::vector<Renaming> &renamings);
    void undo(std::vector<Renaming> &renamings);
    bool fail(const QString &problem);
    QByteArray partPath() const;

    SftpSession &_session;
    Place _folder, _theme, _previous, _part;
    QByteArray _folderHandle;
    QByteArray _outgoing;      // where the one before goes, to be removed
    RemoteTree _inPrevious;    // of the one before
    bool _partIsThere = false; // still under its name, perhaps
    bool _outgoingIsThere = false;
    bool _isRestored = false;
    std::vector<Place> _leftovers;
    QString _problem;
};
