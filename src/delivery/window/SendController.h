// The page that sends a theme to a phone: the remembered phones, what is happening meanwhile, the
// questions that come up, and what became of it.
//
//   Phones <--> Form
//     |
//     v
//   Sending <--> Host, Password
//     |
//     v
//   Result
//
// Nothing here waits for the phone. A page that goes away cancels what it has begun.
#pragma once

#include "delivery/PhoneForm.h"
#include "delivery/window/PhoneDelivery.h"
#include "delivery/window/SendPhones.h"
#include "platform/UIViewController.h"
#include "views/Action.h"

#include <QPointer>

/// What a page sends.
struct SendSubject {
    QString name; // of the theme's folder on the phone
    /// Called on the main thread when it is wanted. Calls what it is given, on the main thread, as
    /// soon as the theme can be read.
    std::function<void(std::function<void(DeliveryTask::Read)>)> take;
};

class SendController final : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by who has a theme to send")
    Q_PROPERTY(QString heading READ heading CONSTANT FINAL)
    Q_PROPERTY(Step step READ step NOTIFY changed FINAL)
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    Q_PROPERTY(QString details READ details NOTIFY changed FINAL)
    Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)
    Q_PROPERTY(QString amount READ amount NOTIFY changed FINAL)
    Q_PROPERTY(double fraction READ fraction NOTIFY changed FINAL)
    Q_PROPERTY(QString mainTitle READ mainTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString otherTitle READ otherTitle NOTIFY changed FINAL)
    Q_PROPERTY(QStringList form READ form NOTIFY changed FINAL)

public:
    enum class Step { Phones, Form, Sending, Host, Password, Result };
    Q_ENUM(Step)

    /// The phones are remembered below the documents.
    static std::shared_ptr<SendController>
    init(const QString &documents, SendSubject subject,
         DeliveryTask::Connect connect = DeliveryTask::bySsh());
    ~SendController() override;
    /// Lays the page over the key window's stage.
    static void present(const QString &documents, SendSubject subject);
    /// The same for what is there to be read; `read` is called on a queue of its own.
    static void present(const QString &documents, const QString &name, DeliveryTask::Read read);

    QString heading() const;
    Step step() const { return _step; }
    /// What is happening, is asked, or has become of it.
    QString text() const { return _text; }
    /// What else is to be known: a fingerprint, what to do next.
    QString details() const { return _details; }
    /// What went wrong with the list of phones, a sentence; else empty.
    QString problem() const { return _problem; }
    /// How much has arrived, in words; empty as long as nothing is sent.
    QString amount() const;
    double fraction() const; // of all that is to be sent, 0 to 1
    /// Of the page's two buttons; empty where there is none.
    QString mainTitle() const;
    QString otherTitle() const;
    /// What the form starts with: name, host, port, user, folder.
    QStringList form() const;

    Q_INVOKABLE void mainTapped();
    Q_INVOKABLE void otherTapped();
    Q_INVOKABLE void keepTapped(const QString &name, const QString &host, const QString &port,
                                const QString &user, const QString &folder);
    /// One step back: to the list, out of a delivery, or away.
    Q_INVOKABLE void escapePressed();
    Q_INVOKABLE void close();

    void viewDidLoad() override;
    /// Not in the middle of a delivery.
    bool allowsBack() const override { return !isDelivering(); }

signals:
    void changed();

protected:
    const char *viewFile() const override { return "delivery/window/SendView.qml"; }

private:
    SendController(const QString &documents, SendSubject subject, DeliveryTask::Connect connect);
    void go(Step step);
    void showMenu();
    void showForm(const PhoneForm &form, const QString &oldName);
    void showProblem(const QString &problem);
    bool isDelivering() const;
    void begin(bool isBack);
    void send();
    void putBack();
    void start(DeliveryTask::Read read);
    void askAboutHost(const UnknownHost &host);
    void acceptHost();
    void askPassword(const QString &prompt);
    void logIn();
    void cancel();
    void finish(const DeliveryResult &result);

    const SendSubject _subject;
    const DeliveryTask::Connect _connect;
    SendPhones _phones;
    Step _step = Step::Phones;
    QString _text, _details, _problem;
    PhoneForm _form;
    QString _changedPhone; // the name of the one that the form is about; empty: a new one
    DeliveryProgress _progress;
    bool _isBack = false; // the old theme is put back, rather than a new one sent
    bool _hasSucceeded = false;
    QString _prompt;  // the password that was asked for last
    int _attempt = 0; // a theme that was taken for an earlier one comes too late
    QPointer<PhoneDelivery> _delivery;
    std::shared_ptr<ActionMenu> _menu; // shown last
};
