// Qt Quick keeps the class of its TextInput to itself; what is public of it are its properties and
// its invokable methods, so the field drives it by their names.
#include "platform/UITextField.h"

#include "platform/QMLViews.h"

#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QQmlEngine>
#include <QQuickWindow>

#include <utility>

namespace
{
void call(QObject *input, const char *method)
{
    QMetaObject::invokeMethod(input, method);
}
} // namespace

UITextField::UITextField(QQuickItem *parent) : UIView(parent)
{
    setFlag(ItemAcceptsDrops);
}

UITextField::~UITextField()
{
    hideMenu();
}

void UITextField::setInput(QQuickItem *input)
{
    _input = input;
    _input->installEventFilter(this);
    connect(_input, SIGNAL(textChanged()), this, SIGNAL(textChanged()));
    // Tells of an edit even where the text after it is the text of before.
    connect(_input, SIGNAL(textEdited()), this, SLOT(noteEdit()));
    connect(_input, &QQuickItem::focusChanged, this, &UITextField::setEditing);
    emit textChanged();
}

void UITextField::setDelegate(std::weak_ptr<UITextFieldDelegate> delegate)
{
    _delegate = std::move(delegate);
}

QString UITextField::text() const
{
    if (_textBefore)
        return *_textBefore;
    return _input ? _input->property("text").toString() : QString(); // none until the view is made
}

void UITextField::setText(const QString &text)
{
    if (_textBefore) {
        _textBefore = _textInstead = text;
        return;
    }
    _input->setProperty("text", text);
}

void UITextField::setTextColor(const QColor &color)
{
    if (_textColor == color)
        return;
    _textColor = color;
    emit textColorChanged();
}

void UITextField::becomeFirstResponder()
{
    _input->forceActiveFocus();
}

void UITextField::resignFirstResponder()
{
    _input->setFocus(false);
}

void UITextField::setEditing(bool editing)
{
    if (_isEditing == editing)
        return;
    _isEditing = editing;
    emit editingChanged();
    if (editing)
        return;
    hideMenu();
    if (const auto delegate = _delegate.lock())
        delegate->textFieldDidEndEditing(*this);
}

TextContent UITextField::content() const
{
    return {_input->property("text").toString(), _input->property("selectionStart").toInt(),
            _input->property("selectionEnd").toInt(), _input->property("cursorPosition").toInt()};
}

void UITextField::setContent(const TextContent &content)
{
    _input->setProperty("text", content.text);
    _input->setProperty("cursorPosition", content.cursor);
    if (content.selectionStart != content.selectionEnd)
        QMetaObject::invokeMethod(_input, "select", Q_ARG(int, int(content.selectionStart)),
                                  Q_ARG(int, int(content.selectionEnd)));
}

void UITextField::editAndAsk(const std::function<void()> &edit, qsizetype offset)
{
    const TextContent before = content();
    _wasEdited = false;
    edit();
    const TextContent after = content();
    if (!_wasEdited && after.text == before.text)
        return;
    const TextEdit done = editBetween(before, after, offset);
    if (const auto instead = ask(before, done.range, done.replacement))
        setContent(*instead);
}

void UITextField::replace(NSRange range, const QString &replacement)
{
    hideMenu();
    const TextContent before = content();
    QString text = before.text;
    text.replace(range.location, range.length, replacement);
    const auto instead = ask(before, range, replacement);
    setContent(
        instead.value_or(TextContent::withCursor(text, range.location + replacement.size())));
}

std::optional<TextContent> UITextField::ask(const TextContent &before, NSRange range,
                                            const QString &replacement)
{
    const auto delegate = _delegate.lock();
    if (!delegate)
        return std::nullopt;
    _textBefore = before.text;
    const bool allowed = delegate->shouldChangeCharactersInRange(*this, range, replacement);
    _textBefore.reset();
    return contentAfterAnswer(before, replacement, allowed,
                              std::exchange(_textInstead, std::nullopt));
}

bool UITextField::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != _input)
        return UIView::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
        takeKey(static_cast<QKeyEvent &>(*event));
        return true;
    case QEvent::InputMethod:
        takeInputMethod(static_cast<QInputMethodEvent &>(*event));
        return true;
    case QEvent::MouseButtonPress:
        // The right button opens the menu; it must not take away what that is to cut or copy.
        return static_cast<QMouseEvent *>(event)->button() == Qt::RightButton;
    case QEvent::MouseButtonRelease: // of the middle button: pastes what is selected elsewhere
        editAndAsk([&] { deliver(*event); });
        return true;
    default:
        return false;
    }
}

void UITextField::deliver(QEvent &event)
{
    static_cast<QObject *>(_input)->event(&event); // past the filter
}

QString UITextField::typed(const QString &text) const
{
    const int hints = _input->property("inputMethodHints").toInt();
    return hints & Qt::ImhUppercaseOnly ? text.toUpper() : text;
}

void UITextField::takeKey(QKeyEvent &event)
{
    hideMenu();
    if (event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo))
        return;
    if (event.matches(QKeySequence::Cut)) {
        cut();
        return;
    }
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        if (const auto delegate = _delegate.lock(); delegate && !event.isAutoRepeat())
            delegate->textFieldShouldReturn(*this);
        return;
    }
    QKeyEvent key(event.type(), event.key(), event.modifiers(), typed(event.text()),
                  event.isAutoRepeat(), event.count());
    editAndAsk([&] { deliver(key); });
    event.setAccepted(key.isAccepted());
}

void UITextField::takeInputMethod(QInputMethodEvent &event)
{
    event.setCommitString(typed(event.commitString()), event.replacementStart(),
                          event.replacementLength());
    editAndAsk([&] { deliver(event); }, event.replacementStart());
}

void UITextField::cut()
{
    hideMenu();
    if (content().selectionStart != content().selectionEnd) // or the input deletes what comes next
        editAndAsk([this] { call(_input, "cut"); });
}

void UITextField::copy()
{
    hideMenu();
    call(_input, "copy");
}

void UITextField::paste()
{
    hideMenu();
    editAndAsk([this] { call(_input, "paste"); });
}

void UITextField::selectAll()
{
    call(_input, "selectAll");
}

void UITextField::clear()
{
    replace({0, text().size()}, {});
}

void UITextField::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void UITextField::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(event->mimeData()->hasText());
}

void UITextField::dropEvent(QDropEvent *event)
{
    QVariant position;
    QMetaObject::invokeMethod(_input, "inputMethodQuery", Q_RETURN_ARG(QVariant, position),
                              Q_ARG(Qt::InputMethodQuery, Qt::ImCursorPosition),
                              Q_ARG(QVariant, _input->mapFromItem(this, event->position())));
    becomeFirstResponder();
    replace({position.toInt(), 0}, event->mimeData()->text());
    event->setDropAction(Qt::CopyAction); // nothing is taken from where it came from
    event->accept();
}

void UITextField::showMenu()
{
    if (_menu || !window())
        return;
    becomeFirstResponder();
    const QRectF place = mapRectToScene(boundingRect());
    _menu = QMLViews::create(*qmlEngine(this), "platform/EditMenu.qml",
                             {{"field", QVariant::fromValue(this)}, {"place", place}});
    _menu->setParent(this);
    _menu->setParentItem(window()->contentItem());
    _menu->setSize(window()->contentItem()->size());
}

void UITextField::hideMenu()
{
    if (!_menu)
        return;
    _menu->setVisible(false);
    _menu->deleteLater(); // its own button may be what hides it
    _menu.clear();
}
