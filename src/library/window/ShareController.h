// The page that shows a theme as a line of text, and as a QR code, to pass it on; and before all,
// what that text does not hold.
#pragma once

#include "library/KeepChoices.h"
#include "platform/UIViewController.h"

#include <QImage>

class ShareController final : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made where a theme is shared")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString loss READ loss CONSTANT FINAL)
    Q_PROPERTY(QString text READ text CONSTANT FINAL)
    Q_PROPERTY(QString codeProblem READ codeProblem CONSTANT FINAL)
    Q_PROPERTY(bool copied READ isCopied NOTIFY copiedChanged FINAL)

public:
    struct Shared {
        QString name;
        QString loss; // what the text does not hold, for people; else empty
        QString text;
        QImage code;         // a pixel for each module
        QString codeProblem; // why there is none, for people; else empty
    };
    /// Of a package with contents. Any thread.
    static Shared shared(const NamedPackage &package);
    static std::shared_ptr<ShareController> init(const Shared &shared);

    QString loss() const { return _shared.loss; }
    QString text() const { return _shared.text; }
    /// A pixel for each module, with the margin that readers need.
    QImage code() const { return _shared.code; }
    QString codeProblem() const { return _shared.codeProblem; }
    /// Whether the text has been copied from here.
    bool isCopied() const { return _isCopied; }
    Q_INVOKABLE void copyTapped();

signals:
    void copiedChanged();
    /// The page's button was pressed, or Escape.
    void closeTapped();

protected:
    const char *viewFile() const override { return "library/window/ShareView.qml"; }

private:
    explicit ShareController(const Shared &shared) : _shared(shared) {}

    const Shared _shared;
    bool _isCopied = false;
};
