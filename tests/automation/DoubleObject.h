#pragma once

#include "office/com/automation/Value.h"
#include "office/model/Object.h"

#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom::automation {

using com::DispatchPtr;
using com::Value;

/// The arguments of a call in the order of the parameters. An omitted argument is empty.
using Given = std::vector<Value>;

/// A member of an object, with the office's name for it. The parameters are in one text, "Name, Range?", in
/// which "?" marks the optional ones.
struct Member {
    std::string name;
    std::string parameters;
    std::function<Value(const Given&)> get;
    std::function<void(const Value&)> put;
};

using Members = std::vector<Member>;
using Items = std::function<std::vector<DispatchPtr>()>;

Member property(std::string name, std::function<Value()> get,
                std::function<void(const Value&)> put = nullptr);
Member method(std::string name, std::string parameters, std::function<Value(const Given&)> call);

/// Returns an object whose members are called by their names, as an office's are: it refuses other names and
/// a wrong number of arguments, and raises AutomationErrors with an EXCEPINFO. modelOf returns the model's
/// object for it, if any. An object with items has an enumerator.
DispatchPtr makeObject(Members members, std::shared_ptr<model::Object> object = nullptr,
                       Items items = nullptr);

/// Returns the object of the model for an argument that is an object of this process. Raises a type mismatch
/// for any other argument.
std::shared_ptr<model::Object> modelOf(const Value& argument);

}  // namespace mergeloom::automation
