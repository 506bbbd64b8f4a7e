#pragma once

#include "app/FileFormats.h"
#include "app/FilledFormat.h"
#include "app/GnuOptions.h"
#include "app/LetterNames.h"
#include "app/LetterWriters.h"
#include "app/MappingSource.h"
#include "app/OfficeFormats.h"
#include "app/SeenControls.h"
#include "app/SharedFiles.h"
#include "base/AutomationError.h"
#include "base/ConsoleOutput.h"
#include "base/ErrorHandler.h"
#include "base/FileStore.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "office/model/FileConverter.h"
#include "office/model/letters/LetterTemplate.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace mergeloom {

/// Services of the program that the command uses.
struct FillPorts {
    const OfficeFormats& formats;
    FileConverter& converter;  ///< for formats that the engine does not write
    FileStore& files;
    ErrorHandler& errors;
    Messages& messages;
    Progress& progress;
};

/// Fills a template with the records of a structure document.
///
/// Reads the data twice: first to check everything that can be refused, so that a refused run writes nothing,
/// then to write each record as it is read.
class FillCommand {
  public:
    /// The arguments must outlive it. The work ends after the current letter when shouldStop returns true.
    FillCommand(const FillOptions& options, const FillPorts& ports, std::function<bool()> shouldStop)
        : options_(options),
          ports_(ports),
          shouldStop_(std::move(shouldStop)),
          names_(options.output),
          isWorkbook_(isWorkbookFile(options.templateFile)),
          format_(filledFormat(ports.formats, isWorkbook_ ? DocumentFamily::Excel : DocumentFamily::Word,
                               options.output)),
          use_(options.use) {}

    /// Returns false if the work was stopped or if strictness forbids it. Raises an AutomationError with a
    /// sentence for the user for anything that cannot be read, filled or written.
    bool run(std::ostream& report);

  private:
    void checkOptions() const;
    void survey();
    void surveyRecord(const Record& record);
    void compile();
    void noteUnknownFields();
    void refuseWithoutPlaces() const;
    void checkTarget(const std::string& path);
    void checkNames() const;
    void checkDistinct();
    void checkTargets();
    void noteDifferences(const std::vector<std::string>& texts);
    void write();
    void readRecords();
    void endThreads();
    void writeRecord(Record& record);
    void refuseTemplate() const;
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer);
    void writeLetter(const std::string& path, std::span<const Record> records);
    void shareFiles(const letters::LetterSettings& settings);
    void useThreads(const letters::LetterSettings& settings);
    [[nodiscard]] std::unique_ptr<letters::LetterTemplate> openTemplate() const;
    void noteRemarks();
    void advance();
    void finish();
    [[nodiscard]] bool isSelected(std::size_t number) const;
    [[nodiscard]] std::size_t selectedCount() const;

    const FillOptions& options_;
    FillPorts ports_;
    std::function<bool()> shouldStop_;
    LetterNames names_;
    bool isWorkbook_;
    std::unique_ptr<FilledFormat> format_;

    std::unique_ptr<MappingSource> source_;
    const TreeNode* object_ = nullptr;
    std::size_t records_ = 0;
    SeenControls seen_;
    PathFingerprints fingerprints_;
    /// The error of the first file that cannot be written. It is raised after the names of controls are
    /// checked.
    std::optional<AutomationError> targetRefusal_;

    std::optional<std::string> checkedFolder_;  ///< the folder of the last target

    std::unique_ptr<letters::LetterTemplate> template_;
    letters::PlaceSources places_;
    std::vector<std::string> unknownFields_;
    letters::LetterUse use_;
    bool isSheet_ = false;  ///< true for a sheet of labels, which has one record for each label
    std::unique_ptr<letters::Letters> letters_;
    std::unique_ptr<letters::LetterTemplate> sharedTemplate_;
    std::unique_ptr<SharedFiles> shared_;  ///< for formats that are converted, if records can share documents
    std::unique_ptr<LetterWriters> writers_;  ///< if threads of their own write the letters
    std::vector<Record> listed_;              ///< all records, if a table lists them
    std::size_t read_ = 0;
    std::size_t written_ = 0;
    std::size_t files_ = 0;
    bool stopped_ = false;
};

}  // namespace mergeloom
