// A delivery that a page watches.
//
// It belongs to the window, not to the page: who cancels a delivery and closes the page at once
// does not wait until the phone is tidied up. The end of the program does.
#pragma once

#include "delivery/DeliveryTask.h"

#include <QObject>

class PhoneDelivery : public QObject
{
    Q_OBJECT

public:
    /// Starts. Deletes itself after the end.
    PhoneDelivery(DeliveryRequest request, DeliveryTask::Read read, DeliveryTask::Connect connect,
                  QObject *parent);

    /// No question is asked from then on; the end still comes.
    void cancel();
    // Each once after its question.
    void answerHost(bool isAccepted);
    void answerPassword(std::optional<Secret> password);

signals:
    void progressed(const DeliveryProgress &progress);
    void hostAsked(const UnknownHost &host);
    void passwordAsked(const QString &prompt);
    void finished(const DeliveryResult &result);

private:
    DeliveryTask::Handlers handlers();

    bool _isCancelled = false;
    DeliveryTask::Answer _hostAnswer;
    DeliveryTask::PasswordAnswer _passwordAnswer;
    DeliveryTask _task; // last: it uses all of the above
};
