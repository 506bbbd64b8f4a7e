#pragma once

#include "base/Messages.h"

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace mergeloom {

/// A program's command line and standard streams, with texts of UTF-8 on every system. Only the function main
/// makes one.
class Terminal {
  public:
    Terminal(int count, char** values);
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    /// Returns the arguments without the program's name.
    [[nodiscard]] const std::vector<std::string>& arguments() const;
    /// Returns the text after the program's name; none on systems that pass separate arguments.
    [[nodiscard]] const std::optional<std::string>& commandLine() const;
    /// Returns true if the errors are shown in a terminal.
    [[nodiscard]] bool showsErrors() const;
    [[nodiscard]] std::ostream& output() const;
    [[nodiscard]] std::ostream& errors() const;
    /// Returns the message boxes to use if nobody sees the errors; null if they are seen.
    [[nodiscard]] Messages* messageBoxes() const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace mergeloom
