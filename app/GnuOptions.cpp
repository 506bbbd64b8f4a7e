#include "app/GnuOptions.h"

#include "base/OptionReader.h"

#include <charconv>
#include <string_view>

namespace mergeloom {

namespace {

constexpr std::string_view kProgram = "mergeloom";
constexpr const char* kOffices = "'embedded', 'libreoffice', 'com' or 'installed'";

[[noreturn]] void refuse(const std::string& what) {
    OptionReader(kProgram, {}).refuse(what);
}

OfficeChoice officeNamed(const std::string& name) {
    if (name == "embedded") return OfficeChoice::Embedded;
    if (name == "libreoffice") return OfficeChoice::LibreOffice;
    if (name == "com") return OfficeChoice::Com;
    if (name == "installed") return OfficeChoice::Installed;
    refuse("Unknown office '" + name + "': it is " + kOffices + ".");
}

std::string optionOf(Task task) {
    switch (task) {
        case Task::MapAll:
            return "--all";
        case Task::ListObjects:
            return "--list-objects";
        case Task::ListPlaces:
            return "--places";
        case Task::ConvertFields:
            return "--convert-fields";
        case Task::Fill:
            return "--fill";
        case Task::Check:
            return "--check";
        default:
            return {};
    }
}

[[noreturn]] void refuseTogether(const std::string& first, const std::string& second) {
    refuse("Options '" + first + "' and '" + second + "' cannot stand together.");
}

void choose(GnuOptions& options, Task task) {
    const bool isChosen = options.task != Task::Map && options.task != task;
    if (isChosen) refuseTogether(optionOf(options.task), optionOf(task));
    options.task = task;
}

std::string withoutDot(const std::string& extension) {
    return extension.starts_with('.') ? extension.substr(1) : extension;
}

bool readTask(OptionReader& reader, GnuOptions& options) {
    if (reader.takeFlag("--help")) {
        options.task = Task::ShowHelp;
    } else if (reader.takeFlag("--version")) {
        options.task = Task::ShowVersion;
    } else if (reader.takeFlag("--list-objects")) {
        choose(options, Task::ListObjects);
    } else if (reader.takeWithValue("--all", "a folder", options.mapping.folder)) {
        choose(options, Task::MapAll);
    } else if (reader.takeWithValue("--places", "a file", options.placesFile)) {
        choose(options, Task::ListPlaces);
    } else if (reader.takeWithValue("--convert-fields", "a file", options.fieldsFile)) {
        choose(options, Task::ConvertFields);
    } else if (reader.takeWithValue("--fill", "a template", options.fill.templateFile)) {
        choose(options, Task::Fill);
    } else if (reader.takeWithValue("--check", "a template", options.checkedFile)) {
        choose(options, Task::Check);
    } else {
        return false;
    }
    return true;
}

bool readMappingOption(OptionReader& reader, MappingOptions& mapping) {
    if (reader.takeWithValue("--format", "a file extension", mapping.format)) {
        mapping.format = withoutDot(mapping.format);
        return true;
    }
    return reader.takeWithValue("--object", "an object's name", mapping.object) ||
           reader.takeWithValue("--at", "'start', 'end' or the name of a place", mapping.at);
}

[[noreturn]] void refuseRecords(const std::string& option, const std::string& value) {
    refuse("Option '" + option + "' does not take '" + value + "': records are numbered from 1" +
           (option == "--records" ? ", such as 1-500." : "."));
}

std::size_t recordNumber(const std::string& option, const std::string& value, std::string_view number) {
    std::size_t result = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), result);
    const bool isNumber = error == std::errc() && end == number.data() + number.size() && result > 0;
    if (!isNumber) refuseRecords(option, value);
    return result;
}

void readRecords(const std::string& value, FillOptions& fill) {
    const std::string option = "--records";
    const std::size_t dash = value.find('-');
    if (dash == std::string::npos) refuseRecords(option, value);
    fill.firstRecord = recordNumber(option, value, std::string_view(value).substr(0, dash));
    fill.lastRecord = recordNumber(option, value, std::string_view(value).substr(dash + 1));
    if (fill.lastRecord < fill.firstRecord) refuseRecords(option, value);
}

void chooseRecords(FillOptions& fill, const std::string& option) {
    const bool isOther = !fill.recordsOption.empty() && fill.recordsOption != option;
    if (isOther) refuseTogether(fill.recordsOption, option);
    fill.recordsOption = fill.onlyWithFill = option;
}

bool readFillOption(OptionReader& reader, FillOptions& fill) {
    std::string value;
    if (reader.takeWithValue("--data", "a structure document", fill.dataFile)) {
        fill.onlyWithFill = "--data";
    } else if (reader.takeWithValue("--record", "the number of a record", value)) {
        fill.firstRecord = fill.lastRecord = recordNumber("--record", value, value);
        chooseRecords(fill, "--record");
    } else if (reader.takeWithValue("--records", "the numbers of the first and the last record", value)) {
        readRecords(value, fill);
        chooseRecords(fill, "--records");
    } else if (reader.takeFlag("--one-document")) {
        fill.use = letters::LetterUse::OneForAll;
        fill.onlyWithFill = "--one-document";
    } else if (reader.takeFlag("--drop-empty-tables")) {
        fill.emptyTables = letters::EmptyTables::Remove;
        fill.onlyWithFill = "--drop-empty-tables";
    } else if (reader.takeFlag("--strict")) {
        fill.strictness = Strictness::RefusesDifferences;
        fill.onlyWithFill = "--strict";
    } else {
        return false;
    }
    return true;
}

void readOption(OptionReader& reader, GnuOptions& options) {
    std::string value;
    if (readTask(reader, options) || readMappingOption(reader, options.mapping) ||
        readFillOption(reader, options.fill)) {
        return;
    }
    if (reader.takeFlag("--exit-status")) {
        options.exitStatus = ExitStatus::ShowsFailure;
    } else if (reader.takeFlag("--json")) {
        options.listFormat = ListFormat::Json;
    } else if (reader.takeWithValue("--office", kOffices, value)) {
        options.office = officeNamed(value);
    } else if (!reader.takeWithValue("--trace-calls", "a file", options.traceFile) &&
               !reader.takeWithValue("--output", "a file", options.outputFile)) {
        reader.refuseOption();
    }
}

bool isAnsweredAtOnce(Task task) {
    return task == Task::ShowHelp || task == Task::ShowVersion;
}

bool takesSwitches(Task task) {
    return task == Task::Map || task == Task::MapAll || task == Task::ListObjects || task == Task::Check;
}

void refuseWithoutMapping(const GnuOptions& options) {
    const MappingOptions& mapping = options.mapping;
    const bool choosesObject =
        options.task == Task::Map || options.task == Task::Fill || options.task == Task::Check;
    if (!mapping.object.empty() && !choosesObject) {
        refuseTogether("--object", optionOf(options.task));
    }
    const bool maps = options.task == Task::Map || options.task == Task::MapAll;
    if (!mapping.at.empty() && !maps) refuseTogether("--at", optionOf(options.task));
    if (!mapping.format.empty() && options.task != Task::MapAll) {
        refuse("Option '--format' needs '--all FOLDER'.");
    }
}

void refuseHalfOfFilling(const GnuOptions& options) {
    if (options.task != Task::Fill) {
        if (options.fill.onlyWithFill.empty()) return;
        refuse("Option '" + options.fill.onlyWithFill + "' needs '--fill TEMPLATE'.");
    }
    if (options.fill.dataFile.empty()) refuse("Option '--fill' needs '--data FILE'.");
    if (options.outputFile.empty()) refuse("Option '--fill' needs '--output FILE'.");
    if (options.office != OfficeChoice::Embedded) {
        refuse("Only the embedded office fills templates; leave out '--office'.");
    }
}

/// Refuses options without effect: ignored, they would leave the user with another result than expected.
void refuseWhatHasNoEffect(const GnuOptions& options, std::span<const std::string> arguments) {
    if (!takesSwitches(options.task) && options.firstArgument < arguments.size()) {
        refuse("'" + arguments[options.firstArgument] + "' has no meaning behind '" + optionOf(options.task) +
               "'.");
    }
    const bool lists =
        options.task == Task::ListPlaces || options.task == Task::ListObjects || options.task == Task::Check;
    if (!lists && options.listFormat == ListFormat::Json) {
        refuse("Option '--json' needs '--places FILE', '--list-objects' or '--check TEMPLATE'.");
    }
    const bool writesOutput = options.task == Task::ConvertFields || options.task == Task::Fill;
    if (!writesOutput && !options.outputFile.empty()) {
        refuse("Option '--output' needs '--convert-fields FILE' or '--fill TEMPLATE'.");
    }
    if (options.office != OfficeChoice::Com && !options.traceFile.empty()) {
        refuse("Option '--trace-calls' needs '--office=com'.");
    }
    refuseHalfOfFilling(options);
    refuseWithoutMapping(options);
}

}  // namespace

GnuOptions readGnuOptions(std::span<const std::string> arguments) {
    GnuOptions options;
    OptionReader reader(kProgram, arguments);
    while (reader.isAtOption()) {
        readOption(reader, options);
        options.firstArgument = reader.position();
        if (isAnsweredAtOnce(options.task)) return options;
    }
    options.argumentCount = arguments.size();
    const bool endsInJson = options.task == Task::Check && options.firstArgument < arguments.size() &&
                            arguments.back() == "--json";
    if (endsInJson) {
        options.listFormat = ListFormat::Json;
        --options.argumentCount;
    }
    refuseWhatHasNoEffect(options, arguments);
    options.fill.output = options.outputFile;
    options.fill.object = options.mapping.object;
    return options;
}

std::string helpText() {
    return R"(Usage: mergeloom [OPTION]... [-SWITCH [VALUE]]...
Makes a Word template or an Excel workbook from a structure document.

  -xmlfile FILE       the structure document
  -template FILE      the template to be written; it must not exist yet
  -usedocument FILE   an existing document or workbook to build on
  -listing            make a table
  -full               accepted; changes nothing
  -label FILE         make labels in this label document (not in Excel)
  -fields LIST        the fields of a table, joined by "," or ";"
  -hidden [formview]  map and end, without a window; "formview" makes a form
  -deletexmlfile      delete the structure document at the end
  -excel              make an Excel workbook instead
  -directory          make a form

  --object NAME       the object to map, not the first: Orders, "Form Orders"
  --at PLACE          where to begin in the document built on: start, end,
                      a bookmark's or a name's name, or a cell such as Sheet2!B7
  --all FOLDER        make a template of each object in this folder
  --format EXT        their file extension: dotx, with -excel xltx, if not given
  --list-objects      list the objects of the structure document and end
  --places FILE       list the named places of a document or workbook and end
  --check TEMPLATE    compare the places of a template with an object and end;
                      the exit status is 1 when they do not fit
  --json              list objects, places or differences as JSON
  --convert-fields FILE  make places of a Word document's merge fields and end
  --output FILE       write that document here; without it FILE.bak is kept

  --fill TEMPLATE     fill a Word template or a workbook with records and end
  --data FILE         the structure document that holds the records
  --output FILE       the letter; 'out/{OrderNumber}.docx' writes one for each
                      record, named by the values of its controls
  --one-document      write all records into one file, each from a new page on
  --record N          fill the record with that number, from 1
  --records A-B       fill the records from A to B
  --drop-empty-tables  remove tables without records, with their captions
  --strict            write nothing when places and data do not match

  --office=NAME       the office that does the work: embedded, libreoffice, com
                      (Word or Excel, on Windows) or installed (what there is)
  --trace-calls FILE  write each call to Word or Excel to this file
  --exit-status       end with 1 when the mapping failed
  --version, --help   tell the version; show this text

Options stand before the switches. Write ./FILE for a FILE that begins with "-".
)";
}

std::string versionText() {
    return "mergeloom " MERGELOOM_VERSION "\n";
}

}  // namespace mergeloom
