#include "library/ShareText.h"

#include "library/CompactBytes.h"
#include "theme/ElementDataSource.h"
#include "theme/PictureEntry.h"

#include <QCryptographicHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{
struct Element {
    QString key;
    QVariantList options; // none: a colour
};

/// In the order of version 1, which is for ever.
const std::array<Element, 24> &elements()
{
    static const std::array<Element, 24> elements{{
        {u"green-balloon-colors_1"_s, {}},
        {u"green-balloon-colors_2"_s, {}},
        {u"blue-balloon-colors_1"_s, {}},
        {u"blue-balloon-colors_2"_s, {}},
        {u"gray-balloon-colors_1"_s, {}},
        {u"gray-balloon-colors_2"_s, {}},
        {u"balloon-corner-style"_s, {u"round"_s, u"soft"_s, u"square"_s}},
        {u"composer-background-color"_s, {}},
        {u"composer-text-color"_s, {}},
        {u"send-button-color"_s, {}},
        {u"conversation-background-color"_s, {}},
        {u"balloon-text-color"_s, {}},
        {u"message-text-size"_s, {14LL, 16LL, 18LL, 20LL}},
        {u"sender-name-color"_s, {}},
        {u"timestamp-color"_s, {}},
        {u"list-background-image"_s, {}},
        {u"list-name-color"_s, {}},
        {u"list-preview-color"_s, {}},
        {u"list-separator-color"_s, {}},
        {u"list-shows-photos"_s, {false, true}},
        {u"navigation-bar-color"_s, {}},
        {u"navigation-title-color"_s, {}},
        {u"unread-indicator-image"_s, {}},
        {u"unread-name-color"_s, {}},
    }};
    return elements;
}

enum State : quint8 { Absent, Plain, Removed, Any };
constexpr int statesPerByte = 4;
constexpr int checksumSize = 4;

QByteArray checksum(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).first(checksumSize);
}

State writeElement(CompactWriter &values, const Element &element, const QVariant *value)
{
    if (!value || !value->isValid())
        return Absent;
    const bool isText = value->typeId() == QMetaType::QString;
    if (element.options.isEmpty() && isText) {
        if (value->toString().isEmpty())
            return Removed;
        if (const auto color = bytesOfColorText(value->toString())) {
            values.raw(*color);
            return Plain;
        }
    }
    const auto option = std::ranges::find_if(element.options, [&](const QVariant &known) {
        return PropertyList::isEqual(known, *value);
    });
    // A number that is merely equal would come back as another type.
    if (option != element.options.end() && option->typeId() == value->typeId()) {
        values.byte(quint8(option - element.options.begin()));
        return Plain;
    }
    values.value(*value);
    return Any;
}

/// Nothing when the payload is malformed, as the reader then knows as well.
QVariant readElement(CompactReader &values, const Element &element, State state)
{
    if (state == Any)
        return values.value();
    if (element.options.isEmpty())
        return state == Removed ? QVariant(QString()) : QVariant(colorTextOfBytes(values.raw(4)));
    return element.options.value(state == Plain ? values.byte() : -1);
}

bool nestsTooDeep(const QVariant &value, int depth = 0)
{
    const auto isTooDeep = [depth](const QVariant &item) { return nestsTooDeep(item, depth + 1); };
    if (depth > CompactReader::deepest)
        return true;
    if (value.typeId() == QMetaType::QVariantList)
        return std::ranges::any_of(value.toList(), isTooDeep);
    if (value.typeId() == QMetaType::QVariantMap)
        return std::ranges::any_of(value.toMap(), isTooDeep);
    return false;
}

/// Whether the entry has a place of its own in the text, follows from others, or leads to a file,
/// which no text holds.
bool isImplied(const QString &key, const QVariant &value)
{
    static const ElementDataSource none;
    if (key == "name"_L1 || key == PictureEntry::key() ||
        none.arrayObjects().contains(key + "_1"_L1))
        return true;
    const QVariant *head = none.predefinedDict().find(key);
    return head && head->typeId() == value.typeId() && *head == value;
}

void writeOthers(CompactWriter &writer, const PropertyDictionary &info)
{
    std::vector<const PropertyDictionary::Entry *> others;
    for (const auto &entry : info.entries()) {
        const auto &[key, value] = entry;
        const bool ships = std::ranges::find(elements(), key, &Element::key) != elements().end();
        if (!ships && value.isValid() && !isImplied(key, value) && !nestsTooDeep(value))
            others.push_back(&entry);
    }
    writer.number(others.size());
    for (const auto *entry : others) {
        writer.text(entry->first);
        writer.value(entry->second);
    }
}

std::optional<ShareText::Theme> readPayload(const QByteArray &bytes)
{
    ShareText::Theme theme;
    CompactReader reader(bytes);
    const QByteArray states = reader.raw(elements().size() / statesPerByte);
    for (size_t i = 0; i < elements().size() && reader.isGood(); ++i) {
        const auto bits = quint8(states[qsizetype(i / statesPerByte)]) >> i % statesPerByte * 2 & 3;
        if (bits == Absent)
            continue;
        const QVariant value = readElement(reader, elements()[i], State(bits));
        if (!value.isValid())
            return std::nullopt;
        theme.info.setValue(elements()[i].key, value);
    }
    theme.name = reader.text();
    for (quint64 left = reader.number(); left > 0 && reader.isGood(); --left) {
        const QString key = reader.text();
        const QVariant value = reader.value();
        if (theme.info.find(key))
            return std::nullopt;
        if (!isImplied(key, value))
            theme.info.setValue(key, value);
    }
    return reader.isGood() && reader.atEnd() ? std::optional(theme) : std::nullopt;
}

/// Takes base64url characters from the place on, until it has that many; over blanks, line breaks,
/// invisible characters and the marks of quoted lines.
QByteArray collect(const QString &text, qsizetype &place, qsizetype count, QByteArray taken = {})
{
    bool atLineStart = false;
    for (; place < text.size() && taken.size() < count; ++place) {
        const QChar c = text[place];
        if (c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            atLineStart = true;
        if (c.isSpace() || c.category() == QChar::Other_Format || (atLineStart && c == u'>'))
            continue;
        atLineStart = false;
        if (c.unicode() > 127 || !(c.isLetterOrNumber() || c == u'-' || c == u'_'))
            break;
        taken += char(c.unicode());
    }
    return taken;
}

QByteArray decoded(const QByteArray &base64)
{
    return QByteArray::fromBase64(base64, QByteArray::Base64UrlEncoding);
}

constexpr qsizetype base64Size(qsizetype bytes)
{
    return (bytes * 4 + 2) / 3;
}

ShareText::Reading readAt(const QString &text, qsizetype place)
{
    const auto refused = [](const QString &problem) { return ShareText::Reading{{}, problem}; };
    const QString cutOff = u"the shared text is cut off"_s;
    constexpr qsizetype lengthPart = 8; // holds the length of any payload
    const QByteArray start = collect(text, place, lengthPart);
    CompactReader reader(decoded(start));
    const quint64 length = reader.number();
    if (!reader.isGood() || length > quint64(ShareText::longest))
        return refused(start.size() < lengthPart ? cutOff : u"the shared text is damaged"_s);
    const qsizetype size = reader.position() + qsizetype(length);
    const qsizetype wanted = base64Size(size);
    const QByteArray base64 =
        collect(text, place, wanted, start.first(std::min(wanted, start.size())));
    if (base64.size() < wanted)
        return refused(cutOff);
    const QByteArray bytes = decoded(base64);
    if (bytes.size() < size || length < checksumSize ||
        checksum(bytes.first(size - checksumSize)) !=
            bytes.sliced(size - checksumSize, checksumSize))
        return refused(
            u"the checksum of the shared text is wrong: a part of it was changed or lost"_s);
    auto theme = readPayload(bytes.sliced(reader.position(), qsizetype(length) - checksumSize));
    return theme ? ShareText::Reading{std::move(theme), {}}
                 : refused(u"the shared text holds no theme"_s);
}

const QRegularExpression &beginning()
{
    static const QRegularExpression expression(u"tintloom:\\s*([0-9]+)\\s*:"_s,
                                               QRegularExpression::CaseInsensitiveOption);
    return expression;
}
} // namespace

QString ShareText::write(const PropertyDictionary &info, const QString &name)
{
    CompactWriter values;
    QByteArray states(qsizetype(elements().size() / statesPerByte), '\0');
    for (size_t i = 0; i < elements().size(); ++i) {
        const QVariant *value = info.find(elements()[i].key);
        const bool travels = value && !nestsTooDeep(*value);
        const State state = writeElement(values, elements()[i], travels ? value : nullptr);
        states[qsizetype(i / statesPerByte)] |= char(state << i % statesPerByte * 2);
    }
    values.text(name);
    writeOthers(values, info);

    CompactWriter payload;
    payload.number(quint64(states.size() + values.bytes().size() + checksumSize));
    payload.raw(states);
    payload.raw(values.bytes());
    payload.raw(checksum(payload.bytes()));
    return u"tintloom:1:"_s + QString::fromLatin1(payload.bytes().toBase64(
                                  QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

ShareText::Reading ShareText::read(const QString &text)
{
    Reading reading{{}, u"there is no shared theme in the text"_s};
    if (text.size() > longest)
        return {{}, u"the text is too long"_s};
    bool isFirst = true;
    for (const auto &match : beginning().globalMatch(text)) {
        Reading next;
        if (match.capturedView(1) == u'1')
            next = readAt(text, match.capturedEnd());
        else
            next.problem =
                u"the shared text is of version %1, which this Tintloom does not know"_s.arg(
                    match.capturedView(1).left(20));
        if (next.theme)
            return next;
        if (std::exchange(isFirst, false))
            reading = std::move(next);
    }
    return reading;
}

bool ShareText::isMeant(const QString &text)
{
    return beginning().match(text).hasMatch();
}

QStringList ShareText::entriesLeftOut(const PropertyDictionary &info)
{
    QStringList keys;
    for (const auto &[key, value] : info.entries())
        if (nestsTooDeep(value) && !isImplied(key, value))
            keys.append(key);
    return keys;
}
