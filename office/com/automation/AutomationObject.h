#pragma once

#include "office/com/automation/AutomationSession.h"

#include <utility>
#include <vector>

namespace mergeloom::com {

/// An object of another program, whose members are called by their names.
class AutomationObject {
  public:
    /// The class name distinguishes the classes of an office: objects with the same one have the same
    /// members.
    AutomationObject(SessionPtr session, DispatchPtr object, const char* className)
        : session_(std::move(session)), object_(std::move(object)), className_(className) {}

    /// Gets a property, or calls a method that changes nothing. Makes no call if the value was read without
    /// arguments since the last change. All members raise the errors of AutomationSession::invoke.
    Value get(const char* member, const Arguments& arguments = {}) const {
        return session_->invoke(object_, className_, member, CallKind::Read, arguments);
    }
    /// Calls a method that may change something.
    Value call(const char* member, const Arguments& arguments = {}) const {
        return session_->invoke(object_, className_, member, CallKind::Call, arguments);
    }
    void put(const char* member, const Value& value) const {
        session_->invoke(object_, className_, member, CallKind::Put, {value});
    }
    /// Do the same for members that return an object of a class. Raise kObjectDeleted when there is none.
    AutomationObject object(const char* className, const char* member,
                            const Arguments& arguments = {}) const {
        return madeOf(className, member, get(member, arguments));
    }
    AutomationObject callForObject(const char* className, const char* member,
                                   const Arguments& arguments = {}) const {
        return madeOf(className, member, call(member, arguments));
    }

    /// Returns the items of this collection, many with each call.
    [[nodiscard]] std::vector<AutomationObject> items(const char* itemClass) const;

    [[nodiscard]] const SessionPtr& session() const { return session_; }
    [[nodiscard]] const DispatchPtr& reference() const { return object_; }

  private:
    AutomationObject madeOf(const char* className, const char* member, const Value& found) const;

    SessionPtr session_;
    DispatchPtr object_;
    const char* className_;
};

}  // namespace mergeloom::com
