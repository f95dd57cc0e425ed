// A field for a password: what is typed goes into a Secret, character by character, and nobody
// sees more of it than how much there is.
//
// Qt's own field is none of this: it keeps each version of the text, and leaves all of them in
// memory. A key's own event and the clipboard, which Qt holds, are not ours to wipe.
#pragma once

#include "platform/UIView.h"
#include "ssh/Secret.h"

class SecretField : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int length READ length NOTIFY lengthChanged FINAL)

public:
    explicit SecretField(QQuickItem *parent = nullptr);

    /// In characters.
    int length() const { return _length; }
    /// Hands it over and is empty then. It is also wiped when the field leaves the screen.
    Secret take();

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

signals:
    void lengthChanged();
    /// The Return key.
    void entered();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void append(const QString &text);
    void removeLast();
    void setLength(int length);

    Secret _secret; // UTF-8
    int _length = 0;
};
