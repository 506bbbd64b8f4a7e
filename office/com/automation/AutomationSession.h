#pragma once

#include "office/com/automation/CallTrace.h"
#include "office/com/automation/Value.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::com {

/// An argument by its position or, with a name, by that.
struct Argument {
    template <typename Content>
    Argument(Content content) : value(std::move(content)) {}  // NOLINT(google-explicit-constructor)
    template <typename Content>
    Argument(const char* argumentName, Content content) : name(argumentName), value(std::move(content)) {}

    const char* name = nullptr;
    Value value;
};

/// The arguments of a call; those with names are last.
using Arguments = std::vector<Argument>;

/// The kinds of calls of a member.
enum class CallKind { Get, Put };

/// The bounds of waiting for an office that is busy: the number of calls, and the pause between two.
struct Patience {
    int attempts = 150;
    int pauseMilliseconds = 100;
};

/// The calls to one office of another program: its start, the ids of its members, the meaning of its errors.
/// Used by the thread that made it. References to the office's objects have to be released before it; each
/// AutomationObject keeps it alive.
class AutomationSession {
  public:
    /// Takes the office's name for sentences, such as "Word". The trace may be null.
    AutomationSession(std::string officeName, Patience patience, CallTracePtr trace);
    AutomationSession(const AutomationSession&) = delete;
    AutomationSession& operator=(const AutomationSession&) = delete;
    ~AutomationSession();

    /// Starts a program by the identifier of its class, such as "Word.Application". Raises kNotAvailable with
    /// a sentence that advises the user.
    DispatchPtr start(const std::string& programIdentifier);

    /// Calls a member of an object of a class. Repeats the call of a busy office until the patience ends.
    /// Raises
    /// - the office's own number and description for an error of the office,
    /// - kMemberUnknown for a member that this version of the office does not have,
    /// - kObjectDeleted for an object that is gone,
    /// - kNotAvailable when the office stays busy or has ended.
    Value invoke(IDispatch& object, const char* className, const char* member, CallKind kind,
                 const Arguments& arguments);

    /// Returns the objects of a collection by its enumerator. Errors as for invoke.
    std::vector<DispatchPtr> enumerate(IDispatch& collection, const char* className);

    [[nodiscard]] const std::string& officeName() const { return officeName_; }

  private:
    using Ids = std::vector<long>;

    Value invokeIds(IDispatch& object, const std::string& called, const Ids& ids, CallKind kind,
                    const Arguments& arguments);
    const Ids& idsOf(IDispatch& object, const char* className, const char* member,
                     const Arguments& arguments);
    /// Calls once; returns none when the office is busy.
    std::optional<Value> invokeOnce(IDispatch& object, const std::string& called, const Ids& ids,
                                    CallKind kind, const Arguments& arguments);
    [[noreturn]] void raise(long result, const std::string& called);
    void pause() const;
    void note(const std::string& line);

    std::string officeName_;
    Patience patience_;
    CallTracePtr trace_;
    std::map<std::string, Ids> ids_;  ///< by the class, the member and the names of arguments
};

using SessionPtr = std::shared_ptr<AutomationSession>;

}  // namespace mergeloom::com
