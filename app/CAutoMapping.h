#pragma once

#include "app/DatabaseObjects.h"
#include "app/GnuOptions.h"
#include "app/MappingArguments.h"
#include "app/MappingSource.h"
#include "app/MappingTarget.h"
#include "app/OfficeFormats.h"
#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "droppers/DropContext.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom {

/// Makes a template without a user: drops an object of the structure document, the first one unless the
/// options name another, into a new or given document of Word or, in the Excel mode, of Excel, saves that and
/// closes the office that it started.
class CAutoMapping {
  public:
    /// The formats are those of the office that is started. All arguments have to outlive it.
    CAutoMapping(WordStarter startWord, ExcelStarter startExcel, const OfficeFormats& formats,
                 ErrorHandler& errors, Messages& messages, Progress& progress)
        : startWord_(std::move(startWord)),
          startExcel_(std::move(startExcel)),
          formats_(formats),
          errors_(errors),
          messages_(messages),
          progress_(progress) {}

    /// Sets whether an existing template may be replaced; by default it may not.
    void SetAllowExistingTemplate(bool allow) { allowExistingTemplate_ = allow; }

    void SetOptions(MappingOptions options) { options_ = std::move(options); }

    /// Reads the parsed command line. Raises a mapping error when it asks for something impossible.
    void ReadArguments();

    /// Makes the template and returns whether it was made. Raises mapping errors; other errors are reported.
    /// Nothing is written before the mapping is complete, so that a run that fails leaves every file as it
    /// was.
    bool Execute();

    /// Makes a template of each object in the folder that the options name, and returns whether all were
    /// made. The structure document is read once. Objects that are refused are named at the end, the others
    /// are made. Nothing is written when one of the files exists; any other error ends the work, and so does
    /// isStopped, which is called before each object. When the work ends early, a message states the number
    /// of templates made.
    bool ExecuteAll(const std::function<bool()>& isStopped);

    /// Returns the folders that the structure document's options name; the template's own folder takes
    /// precedence.
    [[nodiscard]] const std::string& DocumentsFolder() const { return documentsFolder_; }
    [[nodiscard]] const std::string& TemplatesFolder() const { return templatesFolder_; }

  private:
    /// Runs the body; returns its result, or false after an error that is reported.
    bool trapped(const std::function<bool()>& body);
    bool map();
    [[nodiscard]] const TreeNode& chosenObject(MappingSource& source) const;
    void readFolders(const StructureDocument& document);
    std::unique_ptr<MappingTarget> makeOffice();
    /// Refuses, before an office is started, a mapping that is certain to fail.
    void checkArguments(const MappingTarget& office, const std::string& target) const;
    static void checkTarget(const MappingTarget& office, const std::string& target);
    void checkInPlace(const MappingTarget& office) const;
    void checkSource(const MappingTarget& office) const;
    void checkStart() const;
    /// Returns the file on which the document is built; empty for a new one.
    [[nodiscard]] std::string documentToBuildOn() const;
    void makeDocument(MappingTarget& office);
    void openLabelDocument(MappingTarget& office);

    /// The ports that a drop reports to.
    struct DropPorts {
        ErrorHandler& errors;
        Messages& messages;
        Progress& progress;
    };
    /// Returns the keys of the fields that a table is to have, if the command line lists any.
    [[nodiscard]] std::optional<FieldKeys> chosenFields(const MappingSource& source, const TreeNode& object,
                                                        Messages& messages) const;
    /// Makes a document and drops the object into it. Returns true when something was dropped.
    bool mapObject(MappingTarget& office, const MappingSource& source, const TreeNode& object,
                   const DropPorts& ports);
    [[nodiscard]] bool beginsAtRefusedStart(MappingTarget& office) const;
    static bool dropObject(MappingTarget& office, const MappingSource& source, const MappedObject& object,
                           const DropPorts& ports);
    void save(MappingTarget& office, const std::string& target);
    void checkMayReplace(const MappingTarget& office, const std::string& target) const;
    void showMessage(const std::string& text);

    /// An object and the template that it gets.
    struct Task {
        DatabaseObject object;
        std::string target;
    };
    bool mapAll(const std::function<bool()>& isStopped);
    [[nodiscard]] std::vector<Task> tasksOf(const std::vector<DatabaseObject>& objects,
                                            const MappingTarget& office) const;
    void checkFolder() const;
    static void refuseExisting(const std::vector<Task>& tasks);
    void reportChangedNames(const std::vector<Task>& tasks);
    bool makeTemplate(MappingTarget& office, const MappingSource& source, const Task& task);
    bool makeTemplates(MappingTarget& office, const MappingSource& source, const std::vector<Task>& tasks,
                       const std::function<bool()>& isStopped);

    WordStarter startWord_;
    ExcelStarter startExcel_;
    const OfficeFormats& formats_;
    ErrorHandler& errors_;
    Messages& messages_;
    Progress& progress_;
    bool allowExistingTemplate_ = false;
    MappingOptions options_;
    MappingArguments arguments_;
    std::string documentsFolder_;
    std::string templatesFolder_;
};

}  // namespace mergeloom
