#include "delivery/RemoteThemes.h"

#include "delivery/PhoneWords.h"
#include "theme/ThemeLocations.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>
#include <list>

using namespace Qt::StringLiterals;

namespace
{
const auto ignore = [](const SftpReply &) {};

bool isPartName(const QByteArray &name)
{
    static const QRegularExpression pattern(u"\\A\\.Tintloom\\.part-[0-9a-f]{16}\\z"_s);
    return pattern.match(QString::fromLatin1(name)).hasMatch();
}
} // namespace

RemoteThemes::RemoteThemes(SftpSession &session, const QString &folder, const QString &name)
    : _session(session)
{
    _folder.path = folder.toUtf8();
    while (_folder.path.size() > 1 && _folder.path.endsWith('/'))
        _folder.path.chop(1);
    _theme.path = _folder.path + '/' + name.toUtf8();
    _previous.path = _folder.path + "/." + name.toUtf8() + ".previous";
    _part.path = partPath();
    _outgoing = partPath();
}

QByteArray RemoteThemes::partPath() const
{
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), 16);
    return _folder.path + "/.Tintloom.part-" + number.rightJustified(16, '0');
}

bool RemoteThemes::look()
{
    for (Place *place : {&_folder, &_theme, &_previous})
        _session.lstat(place->path, [this, place](auto &reply) { take(*place, reply); });
    SftpReply opened;
    _session.openFolder(_folder.path, [&opened](const SftpReply &reply) { opened = reply; });
    if (!_session.run() || !_problem.isEmpty())
        return false;
    if (_folder.kind == Kind::Nothing)
        return fail(u"there is no folder %1 on the phone"_s.arg(PhoneWords::path(_folder.path)));
    for (const Place *place : {&_folder, &_theme, &_previous})
        if (place->kind == Kind::Refused)
            return fail(u"%1 is a link or no folder, and is left alone"_s.arg(
                PhoneWords::path(place->path)));
    if (!opened.isOk())
        return fail(u"cannot look into %1: %2"_s.arg(PhoneWords::path(_folder.path),
                                                     PhoneWords::reason(opened)));
    _folderHandle = opened.handle;
    return restoreAfterCut();
}

void RemoteThemes::take(Place &place, const SftpReply &reply)
{
    if (reply.status == SftpReply::NoSuchFile)
        return;
    if (!reply.isOk()) {
        fail(u"cannot look at %1: %2"_s.arg(PhoneWords::path(place.path),
                                            PhoneWords::reason(reply)));
        return;
    }
    place.kind =
        reply.attributes.kind() == SftpAttributes::Kind::Folder ? Kind::Folder : Kind::Refused;
    place.owner = reply.attributes.owner;
}

/// The phone was cut off between two renames.
bool RemoteThemes::restoreAfterCut()
{
    if (_theme.kind != Kind::Nothing || _previous.kind == Kind::Nothing)
        return true;
    std::vector<Renaming> renaming{{_previous.path, _theme.path, {}}};
    if (!rename(renaming))
        return fail(u"cannot put the old theme back into its place: %1"_s.arg(
            PhoneWords::reason(renaming[0].reply)));
    std::swap(_theme.kind, _previous.kind);
    std::swap(_theme.owner, _previous.owner);
    _isRestored = true;
    return true;
}

/// Before our own is there: see the head of RemoteThemes.h.
void RemoteThemes::findLeftovers()
{
    RemoteFolder::read(_session, _folderHandle, [this](const SftpReply::Name &found) {
        if (isPartName(found.name) && found.attributes.kind() == SftpAttributes::Kind::Folder)
            _leftovers.push_back(
                {_folder.path + '/' + found.name, Kind::Folder, found.attributes.owner});
    });
}

/// What is told of it then, says who we are on the phone.
void RemoteThemes::makePart(const std::function<void()> &then)
{
    _partIsThere = true; // it may be, even if the reply is never heard
    _session.makeFolder(_part.path, [this, then](const SftpReply &reply) {
        _partIsThere = reply.isOk();
        if (!reply.isOk()) {
            fail(PhoneWords::cannotWrite(_folder.path, reply));
            return;
        }
        _session.lstat(_part.path, [this](const SftpReply &made) { take(_part, made); });
        then();
    });
}

bool RemoteThemes::removeLeftovers()
{
    std::list<std::pair<QByteArray, RemoteTree>> trees;
    for (const Place &leftover : _leftovers) {
        if (!belongsToUs(leftover))
            continue;
        auto &[path, tree] = trees.emplace_back(partPath(), RemoteTree());
        // Refused where it has just become somebody's theme.
        _session.rename(leftover.path, path, ignore);
        tree.look(_session, path);
    }
    _leftovers.clear();
    if (!_session.run())
        return false;
    for (const auto &[path, tree] : trees)
        tree.remove(_session, path);
    return _session.run();
}

/// The phone's administrator may replace what belongs to others, and the folder of themes may
/// belong to the administrator.
bool RemoteThemes::belongsToUs(const Place &place) const
{
    return place.kind == Kind::Nothing || !place.owner || !_part.owner || *_part.owner == 0 ||
           place.owner == _part.owner || (&place == &_folder && *place.owner == 0);
}

bool RemoteThemes::allBelongToUs()
{
    for (const Place *place : {&_folder, &_theme, &_previous})
        if (!belongsToUs(*place))
            return fail(u"%1 belongs to somebody else on the phone, and is left alone"_s.arg(
                PhoneWords::path(place->path)));
    return true;
}

bool RemoteThemes::upload(const ThemeUpload::Files &files, const ThemeUpload::Progress &progress)
{
    ThemeUpload upload(_session, _part.path, files, progress);
    bool isStarted = false;
    findLeftovers();
    makePart([&] {
        isStarted = _leftovers.empty(); // they may take the room that is needed
        if (isStarted)
            upload.start();
    });
    if (hasPrevious())
        _inPrevious.look(_session, _previous.path);
    if (!_session.run() || !_problem.isEmpty() || !allBelongToUs())
        return false;
    if (!isStarted) {
        if (!removeLeftovers())
            return false;
        upload.start();
        if (!_session.run())
            return false;
    }
    return upload.problem().isEmpty() || fail(upload.problem());
}

bool RemoteThemes::exchange()
{
    SftpReply opened;
    _session.setMode(_part.path, packagePermissions,
                     [&](const SftpReply &reply) { opened = reply; });
    std::vector<Renaming> renamings;
    if (hasPrevious())
        renamings.push_back({_previous.path, _outgoing, {}});
    if (_theme.kind == Kind::Folder)
        renamings.push_back({_theme.path, _previous.path, {}});
    renamings.push_back({_part.path, _theme.path, {}});
    rename(renamings);
    if (_session.end() != SftpSession::End::Open)
        return false;
    const SftpReply &placed = renamings.back().reply;
    if (!opened.isOk() || !placed.isOk()) {
        undo(renamings);
        return fail(u"cannot put the new theme into its place: %1"_s.arg(
            PhoneWords::reason(opened.isOk() ? placed : opened)));
    }
    // Where another sender was quicker with the old theme, ours stands in its place all the same.
    _partIsThere = false;
    _outgoingIsThere = hasPrevious() && renamings.front().reply.isOk();
    return true;
}

bool RemoteThemes::putBack()
{
    if (_previous.kind == Kind::Nothing)
        return _isRestored || fail(u"there is no earlier theme to put back"_s);
    findLeftovers();
    makePart([this] { _session.removeFolder(_part.path, ignore); }); // its name is wanted
    if (!_session.run() || !_problem.isEmpty() || !allBelongToUs() || !removeLeftovers())
        return false;
    _partIsThere = false;
    std::vector<Renaming> renamings{{_theme.path, _part.path, {}},
                                    {_previous.path, _theme.path, {}},
                                    {_part.path, _previous.path, {}}};
    if (rename(renamings))
        return true;
    if (_session.end() != SftpSession::End::Open)
        return false;
    undo(renamings);
    return fail(u"the two themes cannot be exchanged"_s);
}

bool RemoteThemes::rename(std::vector<Renaming> &renamings)
{
    for (Renaming &renaming : renamings)
        _session.rename(renaming.from, renaming.to,
                        [&renaming](const SftpReply &reply) { renaming.reply = reply; });
    return _session.runToTheEnd() &&
           std::ranges::all_of(renamings, [](auto &renaming) { return renaming.reply.isOk(); });
}

/// Last first: each then finds its place free.
void RemoteThemes::undo(std::vector<Renaming> &renamings)
{
    for (auto renaming = renamings.rbegin(); renaming != renamings.rend(); ++renaming)
        if (renaming->reply.isOk())
            _session.rename(renaming->to, renaming->from, ignore);
    _session.runToTheEnd();
}

void RemoteThemes::tidyUp()
{
    _session.resume();
    RemoteTree inPart; // after a cancel nobody has heard how far it came
    if (_partIsThere && _session.runToTheEnd())
        inPart.look(_session, _part.path);
    if (_outgoingIsThere)
        _inPrevious.remove(_session, _outgoing);
    if (_session.runToTheEnd() && _partIsThere) {
        inPart.remove(_session, _part.path);
        _session.runToTheEnd();
    }
}

bool RemoteThemes::fail(const QString &problem)
{
    if (_problem.isEmpty())
        _problem = problem;
    return false;
}
