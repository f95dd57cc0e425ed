// Calls by name.
//
// A bitmap rep hands operations on to its manipulators, and a manipulator hands what it does not
// know back to its rep, without either listing what the other can do. So an operation can be called
// by its name: an Invocation carries the name, the arguments and room for the result, and whoever
// has the name in its table runs it.
#pragma once

#include <any>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// Arguments must have the very types of the operation's parameters: a wrong type raises
/// std::bad_any_cast, a wrong number std::invalid_argument. The result stays empty for void.
struct Invocation {
    std::string operation;
    std::vector<std::any> arguments;
    std::any result;
};

/// Nobody on the way knew the operation.
class UnrecognisedOperation : public std::logic_error
{
public:
    explicit UnrecognisedOperation(std::string operation)
        : std::logic_error("unrecognised operation: " + operation), _operation(std::move(operation))
    {
    }
    const std::string &operation() const { return _operation; }

private:
    std::string _operation;
};

/// Something that operations can be called on by name.
class InvocationTarget
{
public:
    virtual ~InvocationTarget() = default;

    /// Runs the operation here, or forwards it.
    void invoke(Invocation &call)
    {
        if (!answer(call))
            forwardInvocation(call);
    }
    /// Runs the operation if this class has it; false if not.
    virtual bool answer(Invocation &call) = 0;
    /// Hands on an operation that this class does not have.
    virtual void forwardInvocation(Invocation &call) = 0;
};

/// What a class answers to: each name with the member function behind it.
template <class Target>
using OperationTable = std::map<std::string_view, void (*)(Target &, Invocation &)>;

namespace invocation_detail
{
template <auto Member, class Target, class Result, class... Arguments, std::size_t... Index>
void call(Target &target, Invocation &call, std::index_sequence<Index...>)
{
    if (call.arguments.size() != sizeof...(Arguments))
        throw std::invalid_argument("wrong number of arguments: " + call.operation);
    const auto run = [&]() -> Result {
        return (target.*Member)(std::any_cast<std::decay_t<Arguments>>(call.arguments[Index])...);
    };
    if constexpr (std::is_void_v<Result>)
        run();
    else
        call.result = run();
}

template <auto Member>
struct Entry;
template <class Target, class Result, class... Arguments, Result (Target::*Member)(Arguments...)>
struct Entry<Member> {
    static void run(Target &target, Invocation &invocation)
    {
        call<Member, Target, Result, Arguments...>(target, invocation,
                                                   std::index_sequence_for<Arguments...>());
    }
};
template <class Target, class Result, class... Arguments,
          Result (Target::*Member)(Arguments...) const>
struct Entry<Member> {
    static void run(Target &target, Invocation &invocation)
    {
        call<Member, Target, Result, Arguments...>(target, invocation,
                                                   std::index_sequence_for<Arguments...>());
    }
};
} // namespace invocation_detail

/// The table entry for a member function.
template <auto Member>
constexpr auto operationEntry = &invocation_detail::Entry<Member>::run;

/// Runs the call if the table has its name; false if not.
template <class Target>
bool answerFrom(const OperationTable<Target> &table, Target &target, Invocation &call)
{
    const auto entry = table.find(call.operation);
    if (entry == table.end())
        return false;
    entry->second(target, call);
    return true;
}
