#include "delivery/window/SecretField.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>

SecretField::SecretField(QQuickItem *parent) : UIView(parent)
{
    setFlag(ItemAcceptsInputMethod);
    setAcceptedMouseButtons(Qt::LeftButton);
    setActiveFocusOnTab(true);
}

Secret SecretField::take()
{
    Secret taken = std::move(_secret);
    setLength(0);
    return taken;
}

QVariant SecretField::inputMethodQuery(Qt::InputMethodQuery query) const
{
    switch (query) {
    case Qt::ImEnabled:
        return true;
    case Qt::ImHints:
        return int(Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText |
                   Qt::ImhNoAutoUppercase);
    default:
        return UIView::inputMethodQuery(query);
    }
}

void SecretField::keyPressEvent(QKeyEvent *event)
{
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    // AltGr comes as Control and Alt on some systems.
    const auto command = event->modifiers() & commands;
    const bool isTyped = !command || command == (Qt::ControlModifier | Qt::AltModifier);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit entered();
    else if (event->key() == Qt::Key_Backspace && isTyped)
        removeLast();
    else if (event->matches(QKeySequence::Paste))
        append(QGuiApplication::clipboard()->text());
    else if (isTyped && !event->text().isEmpty() && event->text().front().unicode() >= u' ' &&
             event->key() != Qt::Key_Delete)
        append(event->text());
    else
        event->ignore();
}

void SecretField::inputMethodEvent(QInputMethodEvent *event)
{
    append(event->commitString());
}

void SecretField::mousePressEvent(QMouseEvent *)
{
    forceActiveFocus(Qt::MouseFocusReason);
    QGuiApplication::inputMethod()->show();
}

void SecretField::itemChange(ItemChange change, const ItemChangeData &data)
{
    UIView::itemChange(change, data);
    if (change == ItemVisibleHasChanged && !data.boolValue)
        take();
}

/// A line's end, as copied text often has one, and what would not fit whole are left out.
void SecretField::append(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    qsizetype size = bytes.size();
    while (size > 0 && (bytes[size - 1] == '\n' || bytes[size - 1] == '\r'))
        --size;
    if (_secret.size() + std::size_t(size) <= Secret::longest) {
        int characters = 0;
        for (qsizetype i = 0; i < size; ++i) {
            _secret.append(bytes[i]);
            characters += (bytes[i] & 0xC0) != 0x80;
        }
        setLength(_length + characters);
    }
    explicit_bzero(bytes.data(), std::size_t(bytes.size()));
}

void SecretField::removeLast()
{
    while (_secret.size() > 0 && (_secret.text()[_secret.size() - 1] & 0xC0) == 0x80)
        _secret.removeLast();
    _secret.removeLast();
    setLength(std::max(0, _length - 1));
}

void SecretField::setLength(int length)
{
    if (std::exchange(_length, length) != length)
        emit lengthChanged();
}
