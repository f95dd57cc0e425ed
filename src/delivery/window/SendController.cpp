#include "delivery/window/SendController.h"

#include "delivery/window/SendPage.h"
#include "platform/UIAlertView.h"
#include "platform/UIWindow.h"
#include "theme/ThemeLocations.h"

#include <QLocale>

#include <utility>

using Status = DeliveryResult::Status;

namespace
{
PhoneForm newPhone()
{
    PhoneForm form;
    form.folder = ThemeLocations::phonePackageRoot();
    return form;
}
} // namespace

std::shared_ptr<SendController> SendController::init(const QString &documents, SendSubject subject,
                                                     DeliveryTask::Connect connect)
{
    return own(new SendController(documents, std::move(subject), std::move(connect)));
}

SendController::SendController(const QString &documents, SendSubject subject,
                               DeliveryTask::Connect connect)
    : _subject(std::move(subject)),
      _connect(std::move(connect)),
      _phones(documents),
      _form(newPhone())
{
    QObject::connect(&_phones, &SendPhones::menuWanted, this, &SendController::showMenu);
    if (_phones.isEmpty())
        _step = Step::Form;
}

SendController::~SendController()
{
    if (!_delivery)
        return;
    _delivery->cancel();
    // Somebody who has closed the page has seen no result. That it was too late matters.
    QObject::connect(_delivery, &PhoneDelivery::finished, _delivery,
                     [](const DeliveryResult &result) {
                         if (result.status == Status::Done)
                             UIAlertView::show(std::make_unique<UIAlertView>(
                                 result.text, result.next, std::weak_ptr<UIAlertViewDelegate>(),
                                 QStringList{tr("OK")}));
                     });
}

void SendController::present(const QString &documents, SendSubject subject)
{
    UIWindow::keyWindow()->presentViewController(init(documents, std::move(subject)));
}

void SendController::present(const QString &documents, const QString &name, DeliveryTask::Read read)
{
    present(documents, {name, [read = std::move(read)](const auto &then) { then(read); }});
}

QString SendController::heading() const
{
    return tr("Send %1 to Phone").arg(_subject.name);
}

QString SendController::amount() const
{
    const QLocale locale;
    return _step == Step::Sending && _progress.total > 0
               ? tr("%1 of %2")
                     .arg(locale.formattedDataSize(_progress.sent),
                          locale.formattedDataSize(_progress.total))
               : QString();
}

double SendController::fraction() const
{
    return _progress.total > 0 ? double(_progress.sent) / double(_progress.total) : 0.0;
}

QString SendController::mainTitle() const
{
    switch (_step) {
    case Step::Phones:
        return _phones.isEmpty() ? tr("Add Phone") : tr("Send");
    case Step::Host:
        return tr("Accept");
    case Step::Password:
        return tr("Log In");
    case Step::Result:
        return _hasSucceeded ? tr("Done") : tr("Back");
    default:
        return {};
    }
}

QString SendController::otherTitle() const
{
    switch (_step) {
    case Step::Phones:
        return tr("More");
    case Step::Form:
        return {};
    case Step::Result:
        return _hasSucceeded && !_isBack ? tr("Put the Old Theme Back") : QString();
    default:
        return tr("Cancel");
    }
}

QStringList SendController::form() const
{
    return {_form.name, _form.host, _form.port, _form.user, _form.folder};
}

void SendController::mainTapped()
{
    switch (_step) {
    case Step::Phones:
        return _phones.isEmpty() ? showForm(newPhone(), {}) : send();
    case Step::Host:
        return acceptHost();
    case Step::Password:
        return logIn();
    case Step::Result:
        return _hasSucceeded ? close() : go(Step::Phones);
    default:
        return;
    }
}

void SendController::otherTapped()
{
    if (_step == Step::Phones)
        showMenu();
    else if (_step == Step::Result)
        putBack();
    else
        cancel();
}

void SendController::escapePressed()
{
    if (isDelivering())
        cancel();
    else if (_step == Step::Form && !_phones.isEmpty())
        go(Step::Phones);
    else
        close();
}

void SendController::close()
{
    UIWindow::keyWindow()->dismissViewController();
}

bool SendController::isDelivering() const
{
    return _step == Step::Sending || _step == Step::Host || _step == Step::Password;
}

void SendController::viewDidLoad()
{
    _phones.setTable(*page<SendPage>().table, *engine());
    go(_step);
}

void SendController::go(Step step)
{
    _step = step;
    if (step != Step::Phones && step != Step::Form)
        _problem.clear();
    emit changed();
    if (!view())
        return;
    const SendPage &parts = page<SendPage>();
    // A question is not answered by a key that was meant for what was there before.
    QQuickItem *const first = step == Step::Phones     ? parts.table
                              : step == Step::Form     ? parts.form
                              : step == Step::Password ? parts.secret
                              : step == Step::Result   ? parts.mainButton
                                                       : parts.otherButton;
    if (view()->hasActiveFocus())
        first->forceActiveFocus();
    else
        first->setFocus(true);
}

void SendController::showMenu()
{
    const RememberedPhone *const phone = _phones.chosen();
    const QString removed = _phones.removed();
    const Actions actions{
        {tr("Put the Old Theme Back"), [this] { putBack(); }, phone != nullptr},
        {tr("Change…"),
         [this] { showForm(PhoneForm::of(*_phones.chosen()), _phones.chosen()->name); },
         phone != nullptr},
        {tr("Remove"), [this] { showProblem(_phones.removeChosen()); }, phone != nullptr},
        {tr("Undo Remove %1").arg(removed), [this] { showProblem(_phones.undoRemove()); },
         !removed.isEmpty()},
        {tr("Add Phone…"), [this] { showForm(newPhone(), {}); }},
    };
    _menu = ActionMenu::show(phone ? phone->name : tr("Phones"), actions);
}

void SendController::showForm(const PhoneForm &form, const QString &oldName)
{
    _form = form;
    _changedPhone = oldName;
    _problem.clear();
    go(Step::Form);
}

void SendController::showProblem(const QString &problem)
{
    _problem = problem;
    emit changed();
}

void SendController::keepTapped(const QString &name, const QString &host, const QString &port,
                                const QString &user, const QString &folder)
{
    const auto [phone, problem] = PhoneForm{name, host, port, user, folder}.read();
    if (!phone)
        return showProblem(problem);
    showProblem(_phones.save(*phone, _changedPhone));
    if (_problem.isEmpty())
        go(Step::Phones);
}

void SendController::begin(bool isBack)
{
    _isBack = isBack;
    _progress = {};
    _prompt.clear();
    _details.clear();
    _text = isBack ? QString() : tr("Preparing the theme …");
    go(Step::Sending);
}

void SendController::send()
{
    begin(false);
    const auto then = [weak = weak_from_this(), attempt = ++_attempt](DeliveryTask::Read read) {
        const auto self = std::static_pointer_cast<SendController>(weak.lock());
        if (self && self->_attempt == attempt)
            self->start(std::move(read));
    };
    _subject.take(then);
}

void SendController::putBack()
{
    begin(true);
    start({});
}

void SendController::start(DeliveryTask::Read read)
{
    const RememberedPhone &phone = *_phones.chosen();
    DeliveryRequest request{phone.address, phone.folder, _subject.name, {}};
    _delivery =
        new PhoneDelivery(std::move(request), std::move(read), _connect, UIWindow::keyWindow());
    QObject::connect(_delivery, &PhoneDelivery::progressed, this,
                     [this](const DeliveryProgress &progress) {
                         _progress = progress;
                         _text = progress.what;
                         emit changed();
                     });
    QObject::connect(_delivery, &PhoneDelivery::hostAsked, this, &SendController::askAboutHost);
    QObject::connect(_delivery, &PhoneDelivery::passwordAsked, this, &SendController::askPassword);
    QObject::connect(_delivery, &PhoneDelivery::finished, this, &SendController::finish);
}

void SendController::askAboutHost(const UnknownHost &host)
{
    _text = tr("%1 is not known yet. Is it the right one?").arg(host.host);
    _details = tr("Its %1 key has the fingerprint\n%2\nOnce accepted, it is remembered.")
                   .arg(host.keyType, host.fingerprint);
    go(Step::Host);
}

void SendController::acceptHost()
{
    _details.clear();
    _text = _progress.what;
    go(Step::Sending);
    _delivery->answerHost(true);
}

void SendController::askPassword(const QString &prompt)
{
    _text = prompt;
    _details = prompt == _prompt ? tr("That was not the right one.") : QString();
    _prompt = prompt;
    go(Step::Password);
}

void SendController::logIn()
{
    Secret password = page<SendPage>().secret->take();
    if (password.size() == 0)
        return;
    _details.clear();
    _text = _progress.what;
    go(Step::Sending);
    _delivery->answerPassword(std::move(password));
}

void SendController::cancel()
{
    ++_attempt;
    if (!_delivery)
        return finish({Status::Cancelled, tr("Cancelled. The phone is as it was."), {}});
    _details.clear();
    _text = tr("Cancelling …");
    go(Step::Sending);
    _delivery->cancel();
}

void SendController::finish(const DeliveryResult &result)
{
    _delivery = nullptr;
    _hasSucceeded = result.status == Status::Done;
    _text = result.text;
    _details = result.next;
    if (_hasSucceeded)
        if (const QString problem = _phones.noteUsed(); !problem.isEmpty())
            _details += u'\n' + problem;
    go(Step::Result);
}
