#include "ssh/Algorithms.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
struct Kind {
    QString sign;    // in the library's name of it
    QString name;    // for people
    QString keyword; // of the configuration
    QStringList old; // the library knows them, but does not use them unless told to
};

const Kind kinds[] = {
    {u"kex"_s,
     u"key exchange"_s,
     u"KexAlgorithms"_s,
     {u"diffie-hellman-group14-sha1"_s, u"diffie-hellman-group-exchange-sha1"_s,
      u"diffie-hellman-group1-sha1"_s}},
    {u"host key"_s, u"host keys"_s, u"HostKeyAlgorithms"_s, {u"ssh-rsa"_s}},
    {u"enc"_s,
     u"encryption"_s,
     u"Ciphers"_s,
     {u"aes256-cbc"_s, u"aes192-cbc"_s, u"aes128-cbc"_s, u"3des-cbc"_s}},
    {u"mac"_s, u"integrity"_s, u"MACs"_s, {u"hmac-sha1"_s}},
};
} // namespace

QString explainAlgorithms(const QString &error, const QString &host)
{
    static const QRegularExpression pattern(
        u"no match for method ([^:]*): server \\[([^\\]]*)\\]"_s);
    const QRegularExpressionMatch match = pattern.match(error);
    if (!match.hasMatch())
        return {};
    const QString method = match.captured(1);
    QStringList offered = match.captured(2).split(u',', Qt::SkipEmptyParts);
    offered.removeIf([](const QString &name) { // signs, not algorithms
        return name.startsWith("kex-strict-"_L1) || name.startsWith("ext-info-"_L1);
    });
    const auto *const kind =
        std::ranges::find_if(kinds, [&](const Kind &kind) { return method.contains(kind.sign); });
    QString text =
        u"%1 has no way to connect in common with this machine: for %2 it offers only %3"_s.arg(
            host, kind == std::end(kinds) ? method : kind->name, offered.join(", "_L1));
    if (kind == std::end(kinds))
        return text;
    const auto usable =
        std::ranges::find_if(kind->old, [&](const QString &old) { return offered.contains(old); });
    if (usable == kind->old.end())
        return text + u", none of which this machine knows"_s;
    return text +
           u". That is old and weak; if you trust the network, allow it for this host alone in "
           "~/.ssh/config:\nHost %1\n    %2 %3"_s.arg(host, kind->keyword, *usable);
}
