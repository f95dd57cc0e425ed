// A one-line text field that asks before a person's edit changes its text.
//
// The editing itself is Qt's: a TextInput, which TextFieldView.qml lays into the field and the
// field watches. The input takes each event that may edit and shows the new text, which no frame
// has drawn yet; from the text, selection and cursor of before and after follows the exact range
// that was replaced and what replaced it; the delegate is asked about these; and on a refusal the
// text of before is put back.
//
//   key, commit of an input method, middle button, drop --+
//   cut, paste, clear of the field's own menu ------------+--> editAndAsk --> delegate
//
// Where the input's hints ask the keyboard for capitals (Qt::ImhUppercaseOnly), letters come in as
// capitals from keyboards that do not know hints, too; what is pasted stays as it is.
//
// Undo and redo are off, because they would bring back what was refused.
#pragma once

#include "platform/UIView.h"
#include "platform/foundation/TextEdit.h"

#include <QColor>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class UITextField;

class UITextFieldDelegate
{
public:
    virtual ~UITextFieldDelegate() = default;
    /// Whether the range of the field's text may be replaced. The field still holds the text of
    /// before. The delegate may set another text in its answer: a refusal leaves that one, an
    /// allowed insertion goes to its end, and an allowed deletion leaves what the deletion alone
    /// would have left.
    virtual bool shouldChangeCharactersInRange(UITextField &field, NSRange range,
                                               const QString &replacement) = 0;
    /// The Return key.
    virtual bool textFieldShouldReturn(UITextField &field) = 0;
    virtual void textFieldDidEndEditing(UITextField &field) = 0;
};

class UITextField : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *input READ input WRITE setInput FINAL REQUIRED)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor NOTIFY textColorChanged FINAL)
    Q_PROPERTY(bool editing READ isEditing NOTIFY editingChanged FINAL)

public:
    explicit UITextField(QQuickItem *parent = nullptr);
    ~UITextField() override;

    /// The TextInput that edits.
    QQuickItem *input() const { return _input; }
    void setInput(QQuickItem *input);
    /// Not kept alive; without one every edit is allowed.
    void setDelegate(std::weak_ptr<UITextFieldDelegate> delegate);

    QString text() const;
    /// Sets the text without a question, the cursor behind it.
    void setText(const QString &text);
    QColor textColor() const { return _textColor; }
    void setTextColor(const QColor &color);

    /// From the moment the field gets the keyboard until another item of its page gets it, or
    /// resignFirstResponder. A window that is merely not in front does not end editing.
    bool isEditing() const { return _isEditing; }
    void becomeFirstResponder();
    void resignFirstResponder();

    // What the field's menu offers.
    Q_INVOKABLE void cut();
    Q_INVOKABLE void copy();
    Q_INVOKABLE void paste();
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void clear();
    /// The menu: below the field and above all else in the window, until its next use or a press
    /// elsewhere. It stays up for what is to be done with all that it has selected.
    Q_INVOKABLE void showMenu();
    Q_INVOKABLE void hideMenu();
    bool isMenuShown() const { return _menu; }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void textChanged();
    void textColorChanged();
    void editingChanged();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    TextContent content() const;
    void setContent(const TextContent &content);

    /// Lets the input edit, then asks about what it did. `offset` is as in editBetween.
    void editAndAsk(const std::function<void()> &edit, qsizetype offset = 0);
    /// Asks first, then edits.
    void replace(NSRange range, const QString &replacement);
    /// What the field is to hold after the delegate's answer; nothing where the edit may stand.
    std::optional<TextContent> ask(const TextContent &before, NSRange range,
                                   const QString &replacement);
    void takeKey(QKeyEvent &event);
    void takeInputMethod(QInputMethodEvent &event);
    void deliver(QEvent &event);
    /// What was typed, as the keyboard is asked to give it.
    QString typed(const QString &text) const;
    void setEditing(bool editing);
    Q_SLOT void noteEdit() { _wasEdited = true; }

    QPointer<QQuickItem> _input;
    std::weak_ptr<UITextFieldDelegate> _delegate;
    QColor _textColor = Qt::black;
    bool _isEditing = false;
    bool _wasEdited = false;             // the input has taken the edit that is going on
    std::optional<QString> _textBefore;  // while the delegate is asked
    std::optional<QString> _textInstead; // that the delegate set in its answer
    QPointer<QQuickItem> _menu;
};
