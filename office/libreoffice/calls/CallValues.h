#pragma once

#include "base/AutomationError.h"
#include "base/Units.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// The serialised form of the values in calls and answers.
namespace mergeloom::libreoffice {

/// Writes the values of a call or of its result in order.
class CallWriter {
  public:
    void number(std::int64_t value);
    void real(double value);
    void text(std::string_view value);

    /// Appends the bytes of another writer.
    void append(const CallWriter& other) { bytes_ += other.bytes_; }

    [[nodiscard]] const std::string& bytes() const { return bytes_; }

  private:
    void append(const void* value, std::size_t size);

    std::string bytes_;
};

/// Reads the values that a CallWriter wrote, in the same order. Raises std::out_of_range if the bytes end
/// early.
class CallReader {
  public:
    explicit CallReader(std::string bytes) : bytes_(std::move(bytes)) {}

    std::int64_t number();
    double real();
    std::string text();
    [[nodiscard]] bool isAtEnd() const { return read_ == bytes_.size(); }

  private:
    [[nodiscard]] const char* take(std::size_t size);

    std::string bytes_;
    std::size_t read_ = 0;
};

template <typename T>
struct ObjectTrait : std::false_type {};
template <typename Interface>
struct ObjectTrait<std::shared_ptr<Interface>> : std::true_type {};

/// A reference to an object of the object model. Only its number is sent.
template <typename T>
concept ObjectReference = ObjectTrait<T>::value;

template <typename T>
concept NumberValue = std::is_integral_v<T> || std::is_enum_v<T>;
template <typename T>
concept UnitValue = std::is_same_v<T, CharacterPosition> || std::is_same_v<T, CharacterCount>;

void putValue(CallWriter& out, NumberValue auto value) {
    out.number(static_cast<std::int64_t>(value));
}
void putValue(CallWriter& out, UnitValue auto value) {
    out.number(value.value);
}
inline void putValue(CallWriter& out, double value) {
    out.real(value);
}
inline void putValue(CallWriter& out, std::strong_ordering value) {
    out.number(value < 0 ? -1 : static_cast<int>(value > 0));
}
inline void putValue(CallWriter& out, const std::string& value) {
    out.text(value);
}
inline void putValue(CallWriter& out, const std::vector<std::string>& values) {
    out.number(static_cast<std::int64_t>(values.size()));
    for (const std::string& value : values)
        out.text(value);
}

template <typename T>
T takeValue(CallReader& in) {
    if constexpr (NumberValue<T>) {
        return static_cast<T>(in.number());
    } else if constexpr (UnitValue<T>) {
        return T{in.number()};
    } else if constexpr (std::is_same_v<T, double>) {
        return in.real();
    } else if constexpr (std::is_same_v<T, std::strong_ordering>) {
        return in.number() <=> 0;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return in.text();
    } else {
        static_assert(std::is_same_v<T, std::vector<std::string>>);
        std::vector<std::string> values;
        for (std::int64_t left = in.number(); left > 0; --left)
            values.push_back(in.text());
        return values;
    }
}

/// Returns the start of the answer to a successful call, to which the result is added.
CallWriter doneCall();

/// Returns the answer to a call that failed.
std::string failedCall(ErrorNumber number, const std::string& description);

/// Returns a reader at the result of an answer. Raises the error of a call that failed.
CallReader checkedAnswer(std::string bytes);

}  // namespace mergeloom::libreoffice
