#pragma once

#include "base/OptionReader.h"
#include "office/model/letters/LetterTemplate.h"

#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>

namespace mergeloom {

inline constexpr std::string_view kAtStart = "start";
inline constexpr std::string_view kAtEnd = "end";

/// The choices of a mapping that are made by options and not by switches. An empty text is an absent option.
struct MappingOptions {
    std::string object{};  ///< the name of the object to map: "Orders", or "Form Orders"
    std::string at{};      ///< where the mapping begins: kAtStart, kAtEnd, or the name of a place
    std::string folder{};  ///< the folder in which each object gets a template
    std::string format{};  ///< the extension of those templates, without its dot

    [[nodiscard]] bool mapsAll() const { return !folder.empty(); }
};

/// Decides if letters are written when places without data or data without places exist.
enum class Strictness { ToleratesDifferences, RefusesDifferences };

/// The options of the command that fills a template.
struct FillOptions {
    static constexpr std::size_t kLastOfAll = std::numeric_limits<std::size_t>::max();

    std::string templateFile{};
    std::string dataFile{};  ///< the structure document with the records
    std::string output{};    ///< the file of the letters, with control names in braces for one file each
    std::string object{};    ///< the name of the object that the records are of; empty for the first one
    std::size_t firstRecord = 1;
    std::size_t lastRecord = kLastOfAll;
    letters::LetterUse use = letters::LetterUse::OneEach;
    letters::EmptyTables emptyTables = letters::EmptyTables::KeepCaptions;
    Strictness strictness = Strictness::ToleratesDifferences;
    std::string recordsOption{};  ///< the option that chose the records; empty for all
    std::string onlyWithFill{};   ///< the last given option that only this command has
};

enum class Task { Map, MapAll, ListObjects, ListPlaces, ConvertFields, Fill, Check, ShowHelp, ShowVersion };
/// The last one is the office that this machine has.
enum class OfficeChoice { Embedded, LibreOffice, Com, Installed };
/// The formats of a list.
enum class ListFormat { Text, Json };
/// Decides whether the program's exit status shows that a mapping failed; otherwise it stays 0.
enum class ExitStatus { AlwaysZero, ShowsFailure };

/// The options that begin with "--" and come before the switches.
struct GnuOptions {
    Task task = Task::Map;
    OfficeChoice office = OfficeChoice::Embedded;
    ExitStatus exitStatus = ExitStatus::AlwaysZero;
    ListFormat listFormat = ListFormat::Text;
    MappingOptions mapping;
    FillOptions fill;
    std::string placesFile;         ///< the document whose places are listed
    std::string checkedFile;        ///< the template that is compared with an object
    std::string fieldsFile;         ///< the document whose merge fields are converted
    std::string traceFile;          ///< the file for the calls to an installed Word or Excel
    std::string outputFile;         ///< the file for the converted document; empty: in place
    std::size_t firstArgument = 0;  ///< the index of the first argument that is no such option
    std::size_t argumentCount = 0;  ///< without an option after the switches
};

/// Reads the options at the beginning of the arguments (without the program's name). Raises
/// kOptionNotUnderstood with a sentence that names the option that is not understood.
GnuOptions readGnuOptions(std::span<const std::string> arguments);

std::string helpText();
std::string versionText();

}  // namespace mergeloom
