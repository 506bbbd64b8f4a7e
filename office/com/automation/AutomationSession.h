#pragma once

#include "office/com/automation/CallTrace.h"
#include "office/com/automation/Value.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
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

/// The kinds of calls of a member. The result of a Read without arguments is valid until the next call of
/// another kind.
enum class CallKind { Read, Call, Put };

/// The bounds of waiting for an office.
struct Patience {
    int attempts = 150;              ///< of a call that a busy office refuses
    int pauseMilliseconds = 100;     ///< between two of them
    int callMilliseconds = 180'000;  ///< for one call of an office that was started here
};

class CallLimit;
class OfficeProcess;

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
    /// Returns the result of an earlier call for a CallKind::Read that is still valid. Raises
    /// - the office's own number and description for an error of the office,
    /// - kMemberUnknown for a member that this version of the office does not have,
    /// - kObjectDeleted for an object that is gone,
    /// - kNotAvailable when the office stays busy, has ended or does not answer in time.
    Value invoke(const DispatchPtr& object, const char* className, const char* member, CallKind kind,
                 const Arguments& arguments);

    /// Returns the objects of a collection by its enumerator. Errors as for invoke.
    std::vector<DispatchPtr> enumerate(IDispatch& collection, const char* className);

    /// Stops watching the office that was started here: it is ending, or belongs to the user now.
    void releaseOffice();
    /// Ends the office that was started here by force, after a request to quit that failed. Does nothing if
    /// the user works in it.
    void endByForce();

    [[nodiscard]] const std::string& officeName() const { return officeName_; }
    /// Returns the number of calls that may have changed anything in the office.
    [[nodiscard]] std::int64_t changes() const { return changes_; }

  private:
    using Ids = std::vector<long>;
    using Result = long;

    /// The values that were read from an object. The object is held so that no other one gets its address.
    struct KnownResult {
        DispatchPtr object;
        Value value;
    };

    Value traced(IDispatch& object, const char* className, const char* member, CallKind kind,
                 const Arguments& arguments);
    Value invokeIds(IDispatch& object, const std::string& called, const Ids& ids, CallKind kind,
                    const Arguments& arguments);
    /// Repeats a call while the office is busy. Returns the result of the last one.
    Result ask(const std::function<Result()>& call);
    const Ids& idsOf(IDispatch& object, const char* className, const char* member,
                     const Arguments& arguments);
    void noteChange();
    /// Returns the message about an office that does not answer.
    [[nodiscard]] std::string silence() const;
    /// Reports that the office does not answer, and ends this program.
    [[noreturn]] void endRun() const;
    [[noreturn]] void raise(Result result, const std::string& called);
    void pause() const;
    void note(const std::string& line);

    std::string officeName_;
    Patience patience_;
    CallTracePtr trace_;
    std::map<std::string, Ids> ids_;  ///< by the class, the member and the names of arguments
    std::map<std::pair<IDispatch*, std::string>, KnownResult>
        known_;  ///< since the last change, by the member
    std::int64_t changes_ = 0;
    std::shared_ptr<void> cancellation_;
    std::unique_ptr<OfficeProcess> process_;  ///< of the office that was started here
    std::unique_ptr<CallLimit> limit_;        ///< of the calls to it
};

using SessionPtr = std::shared_ptr<AutomationSession>;

}  // namespace mergeloom::com
