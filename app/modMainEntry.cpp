#include "app/modMainEntry.h"

#include "app/CAutoMapping.h"
#include "app/ConvertFieldsCommand.h"
#include "app/FileFormats.h"
#include "app/FillCommand.h"
#include "app/GnuOptions.h"
#include "app/MappingArguments.h"
#include "app/MappingSource.h"
#include "app/MergeloomErrorCodes.h"
#include "app/ObjectList.h"
#include "app/OfficeSelector.h"
#include "app/Places.h"
#include "app/ScopedOffice.h"
#include "app/TemplateCheck.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/ConsoleOutput.h"
#include "base/DiskFileStore.h"
#include "base/ErrorHandler.h"
#include "base/Paths.h"
#include "base/StopSignal.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

#include <memory>
#include <vector>

namespace mergeloom {

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

/// Refuses options of mappings when there is no mapping, which would ignore them.
void refuseOptionsOfMappings(const GnuOptions& options) {
    if (!GetCommandLineArgument(kFieldsSwitch).empty()) return;
    const bool isGiven = !options.mapping.object.empty() || !options.mapping.at.empty();
    if (!isGiven) return;
    throw AutomationError(
        kOptionNotUnderstood,
        "Options '--object' and '--at' belong to a mapping: add -hidden, or -fields to have "
        "one made before the window opens.");
}

/// One run of the program.
class Run {
  public:
    Run(const GnuOptions& options, const Console& console, const DesignerStarter& startDesigner)
        : options_(options),
          console_(console),
          startDesigner_(startDesigner),
          office_(options, files_),
          lines_(console.errors),
          messages_(console.messages != nullptr ? *console.messages : lines_),
          errors_(console.errors) {
        if (console.errorsAreWatched) progress_ = std::make_unique<ConsoleProgress>(console.errors);
    }

    int map(std::span<const std::string> arguments);
    int mapAll(std::span<const std::string> arguments);
    int listObjects(std::span<const std::string> arguments);
    int listPlaces();
    int convertFields();
    int fill();
    int check(std::span<const std::string> arguments);

  private:
    template <typename Body>
    int reportingErrors(const Body& body);
    void start(std::span<const std::string> arguments);
    template <typename Body>
    bool succeeds(const Body& body);
    [[nodiscard]] int statusOf(bool mapped) const;
    bool mapUnattended();
    bool mapAllObjects();
    bool showDesigner(std::span<const std::string> arguments);
    CAutoMapping makeMapping();
    std::vector<Place> readPlaces();
    std::vector<TemplatePlace> readTemplate();

    const GnuOptions& options_;
    const Console& console_;
    const DesignerStarter& startDesigner_;
    DiskFileStore files_;
    OfficeSelector office_;
    ConsoleMessages lines_;
    Messages& messages_;
    ConsoleErrorHandler errors_;
    NoProgress noProgress_;
    std::unique_ptr<Progress> progress_;
};

int Run::map(std::span<const std::string> arguments) {
    start(arguments);
    if (!GetCommandLineArgument(kHiddenSwitch).empty()) {
        return statusOf(succeeds([this] { return mapUnattended(); }));
    }
    refuseOptionsOfMappings(options_);
    return succeeds([&] { return showDesigner(arguments); }) ? kSuccess : kFailure;
}

/// Runs the body in the entry routine's own trap. Returns false after an error, which is reported.
template <typename Body>
bool Run::succeeds(const Body& body) {
    try {
        return body();
    } catch (const AutomationError& error) {
        reportEntryError(error, errors_, messages_);
    } catch (const std::exception& error) {
        errors_.report({0, error.what(), {}, "modMain", "Main", shownPlace(std::source_location::current())});
    }
    return false;
}

/// Returns the exit status. Callers that never saw a failure in the status rely on its being 0.
int Run::statusOf(bool mapped) const {
    const bool showsFailure = options_.exitStatus == ExitStatus::ShowsFailure;
    return mapped || !showsFailure ? kSuccess : kFailure;
}

void Run::start(std::span<const std::string> arguments) {
    std::string commandLine;
    // If the system provides the command line as a text, the switches are read from it as the user typed it.
    GetCommandLineArguments(
        console_.commandLine
            ? CommandLineText(std::string(afterArguments(*console_.commandLine, options_.firstArgument)))
            : CommandLineText::fromArguments(arguments.subspan(options_.firstArgument)),
        commandLine);
    gExcelMode = GetCommandLineArgument(kExcelSwitch).empty() ? 0 : 1;
    RefuseDeletionOfDatabase();
}

bool Run::mapUnattended() {
    CAutoMapping mapping = makeMapping();
    mapping.ReadArguments();
    // After a mapping that failed its structure document is still needed.
    if (!mapping.Execute()) return false;
    DeleteXmlFileIfRequested();
    return true;
}

int Run::mapAll(std::span<const std::string> arguments) {
    start(arguments);
    const StopSignal stop;
    const bool mapped = succeeds([this] { return mapAllObjects(); });
    const int signal = StopSignal::received();
    // The status that a shell reports for a process that the signal ended.
    return signal != 0 && !mapped ? kEndedBySignal + signal : statusOf(mapped);
}

bool Run::mapAllObjects() {
    CAutoMapping mapping = makeMapping();
    mapping.ReadArguments();
    if (!mapping.ExecuteAll([] { return StopSignal::received() != 0; })) return false;
    DeleteXmlFileIfRequested();
    return true;
}

int Run::listObjects(std::span<const std::string> arguments) {
    start(arguments);
    return reportingErrors([this] {
        MappingSource source{existingXmlFile(), errors_, messages_};
        if (!source.firstObject()) RaiseMappingError(kXmlFileIncorrect);
        writeObjects(console_.output, objectsOf(source), options_.listFormat);
        return true;
    });
}

/// Shows the designer, which makes the mapping that comes before it, since there is a user who wants to see
/// its messages.
bool Run::showDesigner(std::span<const std::string> arguments) {
    return startDesigner_(arguments) == kSuccess;
}

CAutoMapping Run::makeMapping() {
    Progress& progress = progress_ ? *progress_ : noProgress_;
    CAutoMapping mapping = office_.makeMapping(errors_, messages_, progress);
    mapping.SetOptions(options_.mapping);
    return mapping;
}

int Run::listPlaces() {
    return reportingErrors([this] {
        writePlaces(console_.output, readPlaces(), options_.listFormat);
        return true;
    });
}

std::vector<Place> Run::readPlaces() {
    const std::string file = fullPath(options_.placesFile);
    if (isWorkbookFile(file)) {
        const ScopedOffice office{office_.startExcel(), errors_};
        return placesOf(*office->Workbooks()->Open(file));
    }
    const ScopedOffice office{office_.startWord(), errors_};
    return placesOf(*office->Documents()->Open(file));
}

int Run::convertFields() {
    return reportingErrors([this] {
        ConvertFieldsCommand command{[this] { return office_.startWord(); }, office_.formats(), files_,
                                     errors_};
        return command.run(options_.fieldsFile, options_.outputFile, console_.output);
    });
}

int Run::fill() {
    const StopSignal stop;
    if (progress_) progress_ = std::make_unique<ConsoleRecordProgress>(console_.errors);
    Progress& progress = progress_ ? *progress_ : noProgress_;
    const int status = reportingErrors([&] {
        FillCommand command{options_.fill,
                            {office_.formats(), office_.converter(), files_, errors_, messages_, progress},
                            [] { return StopSignal::received() != 0; }};
        return command.run(console_.output);
    });
    const int signal = StopSignal::received();
    return signal != 0 && status != kSuccess ? kEndedBySignal + signal : status;
}

int Run::check(std::span<const std::string> arguments) {
    start(arguments.first(options_.argumentCount));
    return reportingErrors([this] {
        MappingSource source{existingXmlFile(), errors_, messages_};
        const std::vector<DatabaseObject> objects = objectsOf(source);
        if (objects.empty()) RaiseMappingError(kXmlFileIncorrect);
        const std::string& name = options_.mapping.object;
        const DatabaseObject& object = name.empty() ? objects.front() : objectNamed(objects, name);
        const PlaceScheme scheme =
            isWorkbookFile(options_.checkedFile) ? PlaceScheme::RangeNames : PlaceScheme::Bookmarks;
        const std::vector<Finding> findings = checkTemplate(source, object, readTemplate(), scheme);
        writeFindings(console_.output, findings, object, options_.listFormat);
        return findings.empty();
    });
}

std::vector<TemplatePlace> Run::readTemplate() {
    const std::string file = fullPath(options_.checkedFile);
    if (isWorkbookFile(file)) {
        const ScopedOffice office{office_.startExcel(), errors_};
        return templatePlacesOf(*office->Workbooks()->Open(file));
    }
    const ScopedOffice office{office_.startWord(), errors_};
    return templatePlacesOf(*office->Documents()->Open(file));
}

/// Returns the exit status of a command that ends with its own error.
template <typename Body>
int Run::reportingErrors(const Body& body) {
    try {
        return body() ? kSuccess : kFailure;
    } catch (const AutomationError& error) {
        writeConsoleText(console_.errors, error.description());
        return kFailure;
    } catch (const MappingRefusal& refusal) {
        writeConsoleText(console_.errors, refusal.what());
        return kFailure;
    }
}

int runTask(const GnuOptions& options, std::span<const std::string> arguments, const Console& console,
            const DesignerStarter& startDesigner) {
    switch (options.task) {
        case Task::ShowHelp:
            console.output << helpText();
            return kSuccess;
        case Task::ShowVersion:
            console.output << versionText();
            return kSuccess;
        case Task::MapAll:
            return Run(options, console, startDesigner).mapAll(arguments);
        case Task::ListObjects:
            return Run(options, console, startDesigner).listObjects(arguments);
        case Task::ListPlaces:
            return Run(options, console, startDesigner).listPlaces();
        case Task::ConvertFields:
            return Run(options, console, startDesigner).convertFields();
        case Task::Fill:
            return Run(options, console, startDesigner).fill();
        case Task::Check:
            return Run(options, console, startDesigner).check(arguments);
        default:
            return Run(options, console, startDesigner).map(arguments);
    }
}

}  // namespace

int Main(std::span<const std::string> arguments, const Console& console,
         const DesignerStarter& startDesigner) {
    try {
        return runTask(readGnuOptions(arguments), arguments, console, startDesigner);
    } catch (const AutomationError& error) {
        writeConsoleText(console.errors, error.description());
        return kFailure;
    }
}

}  // namespace mergeloom
