#include "office/com/automation/Value.h"

#include "base/AutomationError.h"
#include "office/com/automation/ErrorNumbers.h"

#include <cmath>
#include <optional>

namespace mergeloom::com {

namespace {

[[noreturn]] void refuseType(const char* wanted) {
    throw AutomationError(kTypeMismatch, std::string("A value has the wrong type: no ") + wanted + ".");
}

/// Returns a number or a truth value as a number; none for anything else.
std::optional<double> numberIn(const Value& value) {
    return value.visit([](const auto& content) -> std::optional<double> {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, bool>) {
            return content ? -1.0 : 0.0;
        } else if constexpr (std::is_arithmetic_v<Content>) {
            return static_cast<double>(content);
        } else {
            return {};
        }
    });
}

}  // namespace

bool Value::truth() const {
    const std::optional<double> number = numberIn(*this);
    if (!number) refuseType("truth value");
    return *number != 0;
}

std::int64_t Value::number() const {
    const std::optional<double> number = numberIn(*this);
    if (!number) refuseType("number");
    return std::llround(*number);
}

double Value::real() const {
    const std::optional<double> number = numberIn(*this);
    if (!number) refuseType("number");
    return *number;
}

std::string Value::text() const {
    if (isEmpty()) return {};
    const auto* const text = std::get_if<std::string>(&content_);
    if (text == nullptr) refuseType("text");
    return *text;
}

DispatchPtr Value::object() const {
    if (isEmpty()) return {};
    const auto* const object = std::get_if<DispatchPtr>(&content_);
    if (object == nullptr) refuseType("object");
    return *object;
}

}  // namespace mergeloom::com
