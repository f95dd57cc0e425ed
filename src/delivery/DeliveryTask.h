// A delivery in the background of a window.
//
// It runs on a queue of its own. What it has to say or to ask comes to the main thread; a question
// waits there for as long as a person needs, and a cancel answers it.
#pragma once

#include "delivery/Delivery.h"
#include "platform/foundation/DispatchQueue.h"

class DeliveryTask
{
public:
    using Answer = std::function<void(bool)>;
    using PasswordAnswer = std::function<void(std::optional<Secret>)>;
    /// All called on the main thread, none after the task has died.
    struct Handlers {
        std::function<void(const DeliveryProgress &)> progress;
        /// Call what it brings once, at any time, or let go of it: then the answer is "no".
        std::function<void(const UnknownHost &, Answer)> acceptHost;
        std::function<void(const QString &prompt, PasswordAnswer)> password;
        std::function<void(const DeliveryResult &)> finished; // once, at the end
    };
    /// Called on the queue; null, with the problem set, where there can be no connection.
    using Connect = std::function<std::unique_ptr<SshConnection>(QString &problem)>;

    using Files = std::map<QString, QByteArray>; // as in a request
    /// Called on the queue, before the connection; nothing, with the problem set, where there is
    /// nothing to send.
    using Read = std::function<std::optional<Files>(QString &problem)>;

    /// Starts. Main thread, as is all of the following. What is read, if there is something to
    /// read it, is sent in place of the request's own files.
    DeliveryTask(DeliveryRequest request, Handlers handlers, Connect connect = bySsh(),
                 Read read = {});
    /// Cancels, and waits until the phone is tidied up, or does not answer for some seconds.
    ~DeliveryTask();
    DeliveryTask(const DeliveryTask &) = delete;
    DeliveryTask &operator=(const DeliveryTask &) = delete;

    /// Ends it soon, by the result Cancelled; too late when the new theme is being put in place.
    void cancel();

    static Connect bySsh();

private:
    struct State;

    static DeliveryResult run(const std::shared_ptr<State> &state, DeliveryRequest &request,
                              const Connect &connect, const Read &read);
    template <typename Value, typename Put>
    static Value ask(const std::shared_ptr<State> &state, const Put &put);

    const std::shared_ptr<State> _state;
    DispatchQueue _queue{"org.tintloom.delivery"};
};
