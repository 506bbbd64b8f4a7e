#pragma once

#include "automation/DoubleObject.h"
#include "base/AutomationError.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Members that many objects of an office have.
namespace mergeloom::automation {

/// Returns a method without parameters and result.
inline Member action(std::string name, const std::function<void()>& act) {
    return method(std::move(name), "", [act](const Given&) -> Value {
        act();
        return {};
    });
}

/// Returns a method without a result.
inline Member procedure(std::string name, std::string parameters,
                        const std::function<void(const Given&)>& act) {
    return method(std::move(name), std::move(parameters), [act](const Given& given) -> Value {
        act(given);
        return {};
    });
}

/// Returns an option of an application, which has the value that was set last.
inline Member option(std::string name, const Value& initial) {
    const auto value = std::make_shared<Value>(initial);
    return property(
        std::move(name), [value] { return *value; }, [value](const Value& set) { *value = set; });
}

template <class Collection>
Member countOf(const std::shared_ptr<Collection>& collection) {
    return property("Count", [collection] { return collection->Count(); });
}

inline DispatchPtr countedOnly(int count) {
    return makeObject({property("Count", [count] { return count; })});
}

/// Returns the objects of a collection by their numbers.
template <class Collection, class Make>
Items itemsOf(const std::shared_ptr<Collection>& collection, const Make& make) {
    return [collection, make] {
        std::vector<DispatchPtr> items;
        for (int number = 1; number <= collection->Count(); ++number)
            items.push_back(make(collection->Item(number)));
        return items;
    };
}

/// Returns an argument's object of the model as one of a class. Raises kCommandFailed for an object of
/// another class.
template <class Model>
Model& modelAs(const Value& argument) {
    auto* const found = dynamic_cast<Model*>(modelOf(argument).get());
    if (found == nullptr) throw AutomationError(kCommandFailed, "Bad parameter.");
    return *found;
}

}  // namespace mergeloom::automation
