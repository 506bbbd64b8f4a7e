#pragma once

#include "base/AutomationError.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace mergeloom {

inline constexpr ErrorNumber kOptionNotUnderstood = 5;

/// Reads the options of a command line, each with the value after its "=" or in the next argument.
class OptionReader {
  public:
    /// The program's name appears in sentences. The arguments must outlive it.
    OptionReader(std::string_view program, std::span<const std::string> arguments)
        : program_(program), arguments_(arguments) {}

    [[nodiscard]] bool isAtEnd() const { return next_ == arguments_.size(); }
    [[nodiscard]] bool isAtOption() const {
        return next_ < arguments_.size() && arguments_[next_].starts_with("--");
    }
    [[nodiscard]] std::size_t position() const { return next_; }

    /// Returns true and moves on if the next argument is this option.
    bool takeFlag(std::string_view name);
    /// Returns true, replaces the value and moves on if the next argument is this option. The meaning
    /// describes the value in the sentence about a missing one. Raises kOptionNotUnderstood.
    bool takeWithValue(std::string_view name, std::string_view meaning, std::string& value);

    /// Returns the next argument, which is no option, and moves on.
    const std::string& takeArgument() { return arguments_[next_++]; }

    /// Raises kOptionNotUnderstood for the next argument.
    [[noreturn]] void refuseOption() const;
    /// Raises kOptionNotUnderstood with the sentence and a hint at the program's help.
    [[noreturn]] void refuse(const std::string& sentence) const;

  private:
    std::string_view program_;
    std::span<const std::string> arguments_;
    std::size_t next_ = 0;
};

}  // namespace mergeloom
