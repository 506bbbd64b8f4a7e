#include "app/modMainEntry.h"

#include "app/CAutoMapping.h"
#include "app/ChosenOffice.h"
#include "app/ConsoleErrorHandler.h"
#include "app/ConsoleMessages.h"
#include "app/ConsoleProgress.h"
#include "app/ConsoleText.h"
#include "app/ConvertFieldsCommand.h"
#include "app/FileFormats.h"
#include "app/GnuOptions.h"
#include "app/MergeloomErrorCodes.h"
#include "app/Places.h"
#include "app/StartedOffice.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/excel/Workbooks.h"
#include "office/model/word/Documents.h"

#include <memory>
#include <vector>

namespace mergeloom {

namespace {

/// An object was unloaded while the program ended.
constexpr ErrorNumber kObjectUnloaded = 364;

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

OfficeKind officeKindOf(OfficeChoice choice) {
    return choice == OfficeChoice::LibreOffice ? OfficeKind::LibreOffice : OfficeKind::Embedded;
}

/// One run of the program.
class Run {
  public:
    Run(const GnuOptions& options, const Console& console, const DesignerStarter& startDesigner)
        : options_(options),
          console_(console),
          startDesigner_(startDesigner),
          office_(officeKindOf(options.office), files_),
          messages_(console.errors),
          errors_(console.errors) {
        if (console.errorsAreWatched) progress_ = std::make_unique<ConsoleProgress>(console.errors);
    }

    int map(std::span<const std::string> arguments);
    int listPlaces();
    int convertFields();

  private:
    template <typename Body>
    int tellErrorsOf(const Body& body);
    void start(std::span<const std::string> arguments);
    bool mapUnattended();
    void mapBeforeDesigner();
    bool showDesigner(std::span<const std::string> arguments);
    void tell(const AutomationError& error);
    CAutoMapping makeMapping();
    std::vector<Place> readPlaces();

    const GnuOptions& options_;
    const Console& console_;
    const DesignerStarter& startDesigner_;
    DiskFileStore files_;
    ChosenOffice office_;
    ConsoleMessages messages_;
    ConsoleErrorHandler errors_;
    NoProgress noProgress_;
    std::unique_ptr<Progress> progress_;
};

/// The order of the steps is the order in which the designer and the unattended run share them.
int Run::map(std::span<const std::string> arguments) {
    bool done = false;
    bool isUnattended = false;
    try {
        start(arguments);
        isUnattended = !GetCommandLineArgument(kHiddenSwitch).empty();
        done = isUnattended ? mapUnattended() : showDesigner(arguments);
    } catch (const AutomationError& error) {
        tell(error);
    } catch (const std::exception& error) {
        errors_.report({0, error.what(), {}, "modMain", "Main"});
    }
    // Callers that never learned of a failure by the status rely on its being 0.
    const bool tellsFailure = !isUnattended || options_.exitStatus == ExitStatus::TellsFailure;
    return done || !tellsFailure ? kSuccess : kFailure;
}

void Run::start(std::span<const std::string> arguments) {
    std::string commandLine;
    GetCommandLineArguments(CommandLineText::fromArguments(arguments), commandLine);
    gExcelMode = GetCommandLineArgument(kExcelSwitch).empty() ? 0 : 1;
}

bool Run::mapUnattended() {
    CAutoMapping mapping = makeMapping();
    mapping.ReadArguments();
    // After a mapping that failed its structure document is still needed.
    if (!mapping.Execute()) return false;
    DeleteXmlFileIfRequested();
    return true;
}

bool Run::showDesigner(std::span<const std::string> arguments) {
    if (!GetCommandLineArgument(kFieldsSwitch).empty()) mapBeforeDesigner();
    return startDesigner_(arguments) == kSuccess;
}

void Run::mapBeforeDesigner() {
    CAutoMapping mapping = makeMapping();
    mapping.SetAllowExistingTemplate(true);
    mapping.ReadArguments();
    if (!mapping.Execute()) RaiseMappingError(kMappingStopped);
}

void Run::tell(const AutomationError& error) {
    if (error.number() == kObjectUnloaded) return;
    if (!isMappingError(error.number())) {
        errors_.report({error.number(), error.description(), {}, "modMain", "Main"});
    } else if (!error.description().empty()) {
        messages_.show({error.description(), MessageIcon::Exclamation, MessageButtons::Ok});
    }
}

CAutoMapping Run::makeMapping() {
    Progress& progress = progress_ ? *progress_ : noProgress_;
    return {[this] { return office_.startWord(); },
            [this] { return office_.startExcel(); },
            office_.formats(),
            errors_,
            messages_,
            progress};
}

int Run::listPlaces() {
    return tellErrorsOf([this] {
        writePlaces(console_.output, readPlaces(), options_.placesFormat);
        return true;
    });
}

std::vector<Place> Run::readPlaces() {
    const std::string file = fullPath(options_.placesFile);
    // What both offices can have written is taken for Word's, and so is a file of any other name.
    const bool isExcels = hasExcelExtension(file) || isForeignExcelFile(file);
    if (isExcels && !hasWordExtension(file)) {
        const StartedOffice office{office_.startExcel(), errors_};
        return placesOf(*office->Workbooks()->Open(file));
    }
    const StartedOffice office{office_.startWord(), errors_};
    return placesOf(*office->Documents()->Open(file));
}

int Run::convertFields() {
    return tellErrorsOf([this] {
        ConvertFieldsCommand command{[this] { return office_.startWord(); }, office_.formats(), files_,
                                     errors_};
        return command.run(options_.fieldsFile, options_.outputFile, console_.output);
    });
}

/// The exit status of a command that ends with its own error.
template <typename Body>
int Run::tellErrorsOf(const Body& body) {
    try {
        return body() ? kSuccess : kFailure;
    } catch (const AutomationError& error) {
        writeConsoleText(console_.errors, error.description());
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
        case Task::ListPlaces:
            return Run(options, console, startDesigner).listPlaces();
        case Task::ConvertFields:
            return Run(options, console, startDesigner).convertFields();
        default:
            return Run(options, console, startDesigner).map(arguments.subspan(options.firstArgument));
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
