#pragma once

#include <span>
#include <string>
#include <string_view>

namespace mergeloom {

/// The text after the program's own name, in the form in which the switches are looked for in it.
///
/// Where the system hands over separate arguments, their bounds say more than any text: a file may be called
/// "/srv/label forms/a -excel.xml". So what could be taken for a switch, a quote or a margin inside a value
/// is hidden from the parser, and restored in the values that it found.
class CommandLineText {
  public:
    CommandLineText() = default;
    /// A text that the user typed as a whole; nothing in it is hidden.
    explicit CommandLineText(std::string text) : text_(std::move(text)) {}

    /// An argument is a switch when it is a prefix and a switch's name, or begins with "-" and a switch's
    /// name; what follows such a name belongs to the switch's value. Every other argument is a value or a
    /// piece of one, also "/srv" and "/fields.xml". The switches with "/" come last, since a value ends at
    /// the first " -" that follows it, before any " /" is looked for.
    static CommandLineText fromArguments(std::span<const std::string> arguments);

    /// What the parser looks at.
    [[nodiscard]] const std::string& text() const { return text_; }
    /// What the user gave where the parser found this piece.
    [[nodiscard]] std::string restore(std::string_view piece) const;

  private:
    std::string text_;
    bool hidesCharacters_ = false;
};

}  // namespace mergeloom
