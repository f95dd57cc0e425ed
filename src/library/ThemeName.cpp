#include "library/ThemeName.h"

#include "platform/foundation/XmlText.h"

#include <QCryptographicHash>
#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype mostFolderBytes = 94; // with "-99999" it still is within 100

/// Control characters, line separators, and what turns the direction of the text around it, so that
/// a name looks like another one. Single marks of direction stay: right-to-left names need them.
bool isControl(char32_t character)
{
    const auto category = QChar::category(character);
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph || QChar::isNonCharacter(character) ||
           (character >= 0x202a && character <= 0x202e) ||
           (character >= 0x2066 && character <= 0x2069);
}

bool canBeSeen(char32_t character)
{
    return QChar::category(character) != QChar::Other_Format && !QChar::isSpace(character) &&
           !QChar::isMark(character);
}

bool fitsIntoFolderName(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character) || character == U' ' ||
           character == U'-' || character == U'_';
}

QString fromCharacters(const QList<uint> &characters)
{
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()),
                             characters.size());
}

/// As much of the beginning as has that many bytes, without half characters.
QString shortened(const QString &text, qsizetype bytes)
{
    QList<uint> characters = text.toUcs4();
    while (fromCharacters(characters).toUtf8().size() > bytes)
        characters.removeLast();
    return fromCharacters(characters);
}

QString folderFor(const QString &name)
{
    QList<uint> characters = name.normalized(QString::NormalizationForm_C).toUcs4();
    for (uint &character : characters)
        if (!fitsIntoFolderName(character))
            character = U'_';
    const QString folder = fromCharacters(characters);
    const bool isAscii = std::ranges::all_of(characters, [](uint one) { return one < 0x80; });
    if (folder == name && isAscii)
        return folder;
    const QByteArray hash =
        QCryptographicHash::hash(ThemeName::key(name).toUtf8(), QCryptographicHash::Sha256);
    const QString mark = u'-' + QString::fromLatin1(hash.first(4).toHex());
    return shortened(folder, mostFolderBytes - mark.size()) + mark;
}
} // namespace

ThemeName::Typed ThemeName::fromTyped(const QString &text)
{
    const QString name = text.trimmed();
    const QList<uint> characters = name.toUcs4();
    if (std::ranges::any_of(characters, isControl) || xmlText(name) != name)
        return {name, u"a theme's name cannot hold control characters"_s};
    if (!std::ranges::any_of(characters, canBeSeen))
        return {name, u"a theme needs a name of at least one character"_s};
    if (characters.size() > mostCharacters)
        return {name,
                u"a theme's name has at most %1 characters; this one has %2"_s.arg(mostCharacters)
                    .arg(characters.size())};
    return {name, {}};
}

QString ThemeName::key(const QString &name)
{
    return name.normalized(QString::NormalizationForm_C)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_C);
}

QString ThemeName::freeName(const QString &name, const QSet<QString> &takenKeys)
{
    QString candidate = name;
    for (int number = 2; takenKeys.contains(key(candidate)); ++number) {
        const QString end = u' ' + QString::number(number);
        candidate = fromCharacters(name.toUcs4().first(
                        std::min(name.toUcs4().size(), mostCharacters - end.size()))) +
                    end;
    }
    return candidate;
}

QString ThemeName::freeFolder(const QString &name, const QStringList &taken)
{
    QSet<QString> takenKeys;
    for (const QString &folder : taken)
        takenKeys.insert(key(folder));
    const QString folder = folderFor(name);
    QString candidate = folder;
    for (int number = 2; takenKeys.contains(key(candidate)); ++number)
        candidate = folder + u'-' + QString::number(number);
    return candidate;
}
