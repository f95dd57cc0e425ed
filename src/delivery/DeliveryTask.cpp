#include "delivery/DeliveryTask.h"

#include "delivery/SshModules.h"
#include "platform/foundation/ThreadAnnotations.h"

#include <atomic>

using namespace Qt::StringLiterals;

struct DeliveryTask::State {
    Handlers handlers; // the main thread's alone
    std::atomic<bool> cancelled = false;
    Mutex mutex;
    std::function<void()> deny GUARDED_BY(mutex); // the question that is open
};

namespace
{
/// An answer on its way from one thread to another; the first one counts.
template <typename Value>
class Pending
{
public:
    void answer(Value value)
    {
        const MutexLock lock(_mutex);
        if (!_value)
            _value.emplace(std::move(value));
        _answered.notify_all();
    }

    Value wait()
    {
        MutexLock lock(_mutex);
        while (!_value)
            lock.wait(_answered);
        return std::move(*_value);
    }

private:
    Mutex _mutex;
    std::condition_variable _answered;
    std::optional<Value> _value GUARDED_BY(_mutex);
};

/// Answers "no" when nobody can answer any more.
template <typename Value>
std::function<void(Value)> answerOf(const std::shared_ptr<Pending<Value>> &pending)
{
    const std::shared_ptr<void> lastWord(nullptr, [pending](void *) { pending->answer({}); });
    return [pending, lastWord](Value value) { pending->answer(std::move(value)); };
}
} // namespace

DeliveryTask::DeliveryTask(DeliveryRequest request, Handlers handlers, Connect connect, Read read)
    : _state(std::make_shared<State>())
{
    _state->handlers = std::move(handlers);
    // A function is to be copied, so what is to be sent stays in one place.
    const auto wanted = std::make_shared<DeliveryRequest>(std::move(request));
    _queue.async([state = _state, wanted, connect = std::move(connect), read = std::move(read)] {
        const DeliveryResult result = run(state, *wanted, connect, read);
        MainQueue::async([state, result] {
            if (state->handlers.finished)
                state->handlers.finished(result);
        });
    });
}

DeliveryTask::~DeliveryTask()
{
    _state->handlers = {};
    cancel();
}

void DeliveryTask::cancel()
{
    const MutexLock lock(_state->mutex);
    _state->cancelled = true;
    if (_state->deny)
        _state->deny();
}

/// Any thread but the main one: waits until somebody there answers.
template <typename Value, typename Put>
Value DeliveryTask::ask(const std::shared_ptr<State> &state, const Put &put)
{
    const auto pending = std::make_shared<Pending<Value>>();
    {
        const MutexLock lock(state->mutex);
        if (state->cancelled)
            return {};
        state->deny = [pending] { pending->answer({}); };
    }
    MainQueue::async([state, put, answer = answerOf(pending)] { put(state->handlers, answer); });
    Value value = pending->wait();
    const MutexLock lock(state->mutex);
    state->deny = nullptr;
    return value;
}

DeliveryResult DeliveryTask::run(const std::shared_ptr<State> &state, DeliveryRequest &request,
                                 const Connect &connect, const Read &read)
{
    QString problem;
    if (read && !(request.files = read(problem)))
        return {DeliveryResult::Status::Failed, problem, {}};
    const auto connection = connect(problem);
    if (!connection)
        return {DeliveryResult::Status::Failed, problem, {}};
    DeliveryQuestions questions;
    questions.cancelled = [state] { return state->cancelled.load(); };
    questions.progress = [state](const DeliveryProgress &progress) {
        MainQueue::async([state, progress] {
            if (state->handlers.progress)
                state->handlers.progress(progress);
        });
    };
    questions.acceptHost = [state](const UnknownHost &host) {
        return ask<bool>(state, [host](const Handlers &handlers, const Answer &answer) {
            if (handlers.acceptHost)
                handlers.acceptHost(host, answer);
        });
    };
    questions.password = [state](const QString &prompt) {
        return ask<std::optional<Secret>>(
            state, [prompt](const Handlers &handlers, const PasswordAnswer &answer) {
                if (handlers.password)
                    handlers.password(prompt, answer);
            });
    };
    return deliver(request, *connection, questions);
}

DeliveryTask::Connect DeliveryTask::bySsh()
{
    return [](QString &problem) {
        const SshModules::Loading loading = SshModules::load();
        problem = loading.problem;
        return loading.module ? loading.module->connection() : nullptr;
    };
}
