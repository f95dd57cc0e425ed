#include "delivery/window/PhoneDelivery.h"

#include <utility>

PhoneDelivery::PhoneDelivery(DeliveryRequest request, DeliveryTask::Read read,
                             DeliveryTask::Connect connect, QObject *parent)
    : QObject(parent), _task(std::move(request), handlers(), std::move(connect), std::move(read))
{
}

DeliveryTask::Handlers PhoneDelivery::handlers()
{
    DeliveryTask::Handlers handlers;
    handlers.progress = [this](const DeliveryProgress &progress) {
        if (!_isCancelled)
            emit progressed(progress);
    };
    handlers.acceptHost = [this](const UnknownHost &host, DeliveryTask::Answer answer) {
        if (_isCancelled)
            return;
        _hostAnswer = std::move(answer);
        emit hostAsked(host);
    };
    handlers.password = [this](const QString &prompt, DeliveryTask::PasswordAnswer answer) {
        if (_isCancelled)
            return;
        _passwordAnswer = std::move(answer);
        emit passwordAsked(prompt);
    };
    handlers.finished = [this](const DeliveryResult &result) {
        emit finished(result);
        deleteLater();
    };
    return handlers;
}

void PhoneDelivery::cancel()
{
    _isCancelled = true;
    _task.cancel();
}

void PhoneDelivery::answerHost(bool isAccepted)
{
    if (const auto answer = std::exchange(_hostAnswer, nullptr))
        answer(isAccepted);
}

void PhoneDelivery::answerPassword(std::optional<Secret> password)
{
    if (const auto answer = std::exchange(_passwordAnswer, nullptr))
        answer(std::move(password));
}
