#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// The names of the switches, joined by ";". A switch's position in this list is its index in the argument
/// store.
inline constexpr std::string_view kSwitchNames =
    "xmlfile;template;usedocument;listing;full;label;fields;hidden;deletexmlfile;excel;directory";
/// The prefixes of a switch's name, joined by ";", in the order in which they are tried.
inline constexpr std::string_view kSwitchPrefixes = "-;/";

inline constexpr std::int32_t kXmlFileSwitch = 0;
inline constexpr std::int32_t kTemplateSwitch = 1;
inline constexpr std::int32_t kUseDocumentSwitch = 2;
inline constexpr std::int32_t kListingSwitch = 3;
inline constexpr std::int32_t kFullSwitch = 4;
inline constexpr std::int32_t kLabelSwitch = 5;
inline constexpr std::int32_t kFieldsSwitch = 6;
inline constexpr std::int32_t kHiddenSwitch = 7;
inline constexpr std::int32_t kDeleteXmlFileSwitch = 8;
inline constexpr std::int32_t kExcelSwitch = 9;
inline constexpr std::int32_t kDirectorySwitch = 10;

/// The value of a switch that is given without one.
inline constexpr std::string_view kEmptyValue = "{empty}";

/// The text after the program's own name, in the form in which the switches are searched in it.
///
/// When the system passes separate arguments, their bounds say more than any text: a file may be called
/// "/srv/label forms/a -excel.xml". So characters of a value that the parser could take for a switch, a quote
/// or a margin are hidden from it, and restored in the values that it found.
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

/// Returns the text after the first arguments of a command line, by the rules of Windows: an argument ends
/// with a blank outside of quotes, and a quote after an odd number of backslashes is an ordinary character.
std::string_view afterArguments(std::string_view commandLine, std::size_t count);

/// One slot per switch, by the switches' indexes: empty when the switch is absent, `kEmptyValue` when it has
/// no value, else its value. There are no slots before the command line was parsed.
extern std::vector<std::string> gCommandLineArguments;

/// Parses the process's command line into `gCommandLineArguments` and returns the user's text in the
/// parameter.
void GetCommandLineArguments(const CommandLineText& commandLine, std::string& rstrCommandLine);

/// Returns the slot of a switch; an empty text when there is no such slot.
std::string GetCommandLineArgument(std::int32_t vlngIndex);

/// Returns the full path of the file that a switch names; empty when the switch is absent or has no value.
std::string commandLineFile(std::int32_t index);

}  // namespace mergeloom
