#include "delivery/PhoneAddress.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

std::optional<SshAddress> PhoneAddress::parse(const QString &text)
{
    // Names may become parts of commands in somebody's SSH configuration.
    static const QRegularExpression pattern(
        u"\\A(?:([A-Za-z0-9_][A-Za-z0-9_.-]*)@)?"
        "(?:\\[([0-9A-Fa-f:.]+(?:%[A-Za-z0-9]+)?)\\]|([A-Za-z0-9_][A-Za-z0-9_.-]*))"
        "(?::([0-9]{1,5}))?\\z"_s);
    static const QRegularExpression bare(
        u"\\A(?:([A-Za-z0-9_][A-Za-z0-9_.-]*)@)?([0-9A-Fa-f]*:[0-9A-Fa-f:.]*:[0-9A-Fa-f:.]*)\\z"_s);
    if (const auto match = bare.match(text); match.hasMatch())
        return SshAddress{match.captured(2), 0, match.captured(1)};
    const auto match = pattern.match(text);
    const int port = match.captured(4).toInt();
    if (!match.hasMatch() || port > 65535 || (port == 0 && match.hasCaptured(4)))
        return std::nullopt;
    return SshAddress{match.captured(2) + match.captured(3), port, match.captured(1)};
}

QString PhoneAddress::text(const SshAddress &address)
{
    QString text = address.host;
    if (address.port > 0)
        text = (text.contains(u':') ? u"[%1]:%2"_s : u"%1:%2"_s).arg(text).arg(address.port);
    return address.user.isEmpty() ? text : address.user + u'@' + text;
}
