#include "delivery/PhoneWords.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString PhoneWords::path(const QByteArray &path)
{
    QString shown = QString::fromUtf8(path);
    std::ranges::replace_if(
        shown, [](QChar c) { return !c.isPrint() && !c.isSurrogate(); }, u'?');
    return u'"' + shown + u'"';
}

QString PhoneWords::reason(const SftpReply &reply)
{
    switch (reply.status) {
    case SftpReply::PermissionDenied:
        return u"the phone does not permit it"_s;
    case SftpReply::NoSuchFile:
        return u"it is not there any more; somebody else may be sending a theme"_s;
    default:
        return u"the phone does not say why; perhaps it has no room left"_s;
    }
}

QString PhoneWords::cannotWrite(const QByteArray &path, const SftpReply &reply)
{
    return u"cannot write %1: %2"_s.arg(PhoneWords::path(path), reason(reply));
}
