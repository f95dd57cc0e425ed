// Paths of foreign files: what may be one, and how people are told about one.
#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>

/// For people, in quotes: what somebody else named must not steer a terminal.
inline QString shownPath(const QString &path)
{
    QString shown = path.left(200);
    std::replace_if(
        shown.begin(), shown.end(), [](QChar c) { return !c.isPrint() && !c.isSurrogate(); }, u'?');
    return u'"' + shown + u'"';
}

/// Why a path of these parts is refused, to follow its name; else empty.
inline QString problemOfPath(const QStringList &parts, int levels)
{
    constexpr qsizetype longestName = 255; // bytes; what file systems take
    if (parts.contains(QStringLiteral("..")))
        return QStringLiteral("leads out of the package");
    if (parts.size() > levels)
        return QStringLiteral("lies more than %1 levels deep").arg(levels);
    for (const QString &part : parts) {
        if (part.toUtf8().size() > longestName)
            return QStringLiteral("has too long a name");
        if (std::any_of(part.begin(), part.end(), [](QChar c) { return c < u' ' || c == u'\x7F'; }))
            return QStringLiteral("has control characters in its name");
    }
    return {};
}
