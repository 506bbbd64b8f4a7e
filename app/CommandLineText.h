#pragma once

#include <span>
#include <string>
#include <string_view>

namespace mergeloom {

/// The text after the program's own name, in the form in which the switches are searched in it.
///
/// When the system passes separate arguments, their bounds say more than any text: a file may be called
/// "/srv/label forms/a -excel.xml". So what the parser could take for a switch, a quote or a margin inside a
/// value is hidden from it, and restored in the values that it found.
class CommandLineText {
  public:
    CommandLineText() = default;
    /// Takes a text that the user typed as a whole; nothing in it is hidden.
    explicit CommandLineText(std::string text) : text_(std::move(text)) {}

    /// Makes the text of separate arguments. An argument is a switch when it is a prefix and a switch's name,
    /// or begins with "-" and a switch's name; the rest after such a name belongs to the switch's value.
    /// Every other argument is a value or a piece of one, also "/srv" and "/fields.xml". The switches with
    /// "/" come last, since a value ends at the first " -" that follows it, before any " /" is searched.
    static CommandLineText fromArguments(std::span<const std::string> arguments);

    /// Returns the text for the parser.
    [[nodiscard]] const std::string& text() const { return text_; }
    /// Returns the user's own text for a piece that the parser found.
    [[nodiscard]] std::string restore(std::string_view piece) const;

  private:
    std::string text_;
    bool hidesCharacters_ = false;
};

}  // namespace mergeloom
