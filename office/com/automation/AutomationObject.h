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

    /// Get a property or call a method; errors as for AutomationSession::invoke.
    Value get(const char* member, const Arguments& arguments = {}) const {
        return session_->invoke(*object_, className_, member, CallKind::Get, arguments);
    }
    Value call(const char* member, const Arguments& arguments = {}) const { return get(member, arguments); }
    void put(const char* member, const Value& value) const {
        session_->invoke(*object_, className_, member, CallKind::Put, {value});
    }
    /// Gets a property or calls a method that returns an object of a class. Raises kObjectDeleted when it
    /// returns none.
    AutomationObject object(const char* className, const char* member, const Arguments& arguments = {}) const;

    /// Returns the items of this collection, many with each call.
    [[nodiscard]] std::vector<AutomationObject> items(const char* itemClass) const;

    [[nodiscard]] const SessionPtr& session() const { return session_; }
    [[nodiscard]] const DispatchPtr& reference() const { return object_; }

  private:
    SessionPtr session_;
    DispatchPtr object_;
    const char* className_;
};

}  // namespace mergeloom::com
