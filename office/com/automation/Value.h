#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

struct IDispatch;

namespace mergeloom::com {

/// A counted reference to an object of another program, released with its last copy.
using DispatchPtr = std::shared_ptr<IDispatch>;

/// Returned for properties that have several values at once (VT_NULL).
struct Mixed {
    bool operator==(const Mixed&) const = default;
};

/// An argument or a result of a call. An empty one is an optional argument that is left out, or no result.
class Value {
  public:
    Value() = default;
    Value(bool truth) : content_(truth) {}                      // NOLINT(google-explicit-constructor)
    Value(int number) : content_(std::int64_t{number}) {}       // NOLINT(google-explicit-constructor)
    Value(std::int64_t number) : content_(number) {}            // NOLINT(google-explicit-constructor)
    Value(double number) : content_(number) {}                  // NOLINT(google-explicit-constructor)
    Value(std::string text) : content_(std::move(text)) {}      // NOLINT(google-explicit-constructor)
    Value(const char* text) : content_(std::string(text)) {}    // NOLINT(google-explicit-constructor)
    Value(DispatchPtr object) : content_(std::move(object)) {}  // NOLINT(google-explicit-constructor)
    Value(Mixed mixed) : content_(mixed) {}                     // NOLINT(google-explicit-constructor)
    template <typename Enumeration, typename = std::enable_if_t<std::is_enum_v<Enumeration>>>
    Value(Enumeration number) : Value(static_cast<int>(number)) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] bool isEmpty() const { return std::holds_alternative<std::monostate>(content_); }
    [[nodiscard]] bool isMixed() const { return std::holds_alternative<Mixed>(content_); }
    [[nodiscard]] bool isText() const { return std::holds_alternative<std::string>(content_); }

    /// Return the value as a value of that type. Numbers and truth values become one another as in Visual
    /// Basic, whose True is -1. Raise kTypeMismatch for any other type.
    [[nodiscard]] bool truth() const;
    [[nodiscard]] std::int64_t number() const;
    [[nodiscard]] int integer() const { return static_cast<int>(number()); }
    [[nodiscard]] double real() const;
    /// An empty value is the empty text.
    [[nodiscard]] std::string text() const;
    /// Returns null for no object (Nothing).
    [[nodiscard]] DispatchPtr object() const;

    /// Calls a visitor with the content of the value.
    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), content_);
    }

  private:
    std::variant<std::monostate, Mixed, bool, std::int64_t, double, std::string, DispatchPtr> content_;
};

}  // namespace mergeloom::com
