#include "platform/foundation/NSLog.h"

#include <QStringView>

#include <cstdio>

namespace
{
bool breaksLine(char16_t unit)
{
    return unit < 0x20 || (unit >= 0x7f && unit < 0xa0) || unit == 0x2028 || unit == 0x2029;
}

QString onOneLine(QStringView text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit == u'\n')
            line += QLatin1String("\\n");
        else if (breaksLine(unit))
            line += QString::asprintf("\\u%04x", unsigned(unit));
        else
            line += character;
    }
    return line;
}
} // namespace

void NSLog(const QString &format, std::initializer_list<QString> arguments)
{
    QString line;
    auto argument = arguments.begin();
    for (qsizetype i = 0; i < format.size(); ++i) {
        const char16_t next = i + 1 < format.size() ? format[i + 1].unicode() : u'\0';
        if (format[i] != u'%' || (next != u'@' && next != u's' && next != u'%')) {
            line += format[i];
            continue;
        }
        ++i;
        if (next == u'%')
            line += u'%';
        else if (argument != arguments.end())
            line += onOneLine(*argument++);
        else
            line += format.mid(i - 1, 2);
    }
    line += u'\n';
    const QByteArray bytes = line.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr); // one call: lines do not mix
}
