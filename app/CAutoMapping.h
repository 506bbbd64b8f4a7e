#pragma once

#include "app/ExcelStarter.h"
#include "app/MappingArguments.h"
#include "app/MappingOffice.h"
#include "app/MappingSource.h"
#include "app/OfficeFormats.h"
#include "app/WordStarter.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "droppers/DropContext.h"

#include <memory>
#include <optional>
#include <string>

namespace mergeloom {

/// Makes a template without a user: drops the structure document's first object into a new or given document
/// of Word or, in the Excel mode, of Excel, saves that and closes the office that it started.
class CAutoMapping {
  public:
    /// The formats are those of the office that is started. All have to outlive it.
    CAutoMapping(WordStarter startWord, ExcelStarter startExcel, const OfficeFormats& formats,
                 ErrorHandler& errors, Messages& messages, Progress& progress)
        : startWord_(std::move(startWord)),
          startExcel_(std::move(startExcel)),
          formats_(formats),
          errors_(errors),
          messages_(messages),
          progress_(progress) {}

    /// Whether a template that is there already may be replaced; it may not unless this is set.
    void SetAllowExistingTemplate(bool allow) { allowExistingTemplate_ = allow; }

    /// Reads the parsed command line. Raises a mapping error when it asks for something impossible.
    void ReadArguments();

    /// Makes the template and tells whether it was made. Raises mapping errors; other errors are reported.
    /// Nothing is written before the mapping is complete, so that a run that fails leaves every file as it
    /// was.
    bool Execute();

    /// The folders that the structure document's options name; the template's own folder goes before theirs.
    [[nodiscard]] const std::string& DocumentsFolder() const { return documentsFolder_; }
    [[nodiscard]] const std::string& TemplatesFolder() const { return templatesFolder_; }

  private:
    bool map();
    void readFolders(const StructureDocument& document);
    std::unique_ptr<MappingOffice> makeOffice();
    /// Refuses what can be seen to fail before an office is started.
    void checkArguments(const MappingOffice& office) const;
    void checkTarget(const MappingOffice& office) const;
    void checkInPlace(const MappingOffice& office) const;
    void checkSource(const MappingOffice& office) const;
    /// The file on which the document is built; empty for a new one.
    [[nodiscard]] std::string documentToBuildOn() const;
    void makeDocument(MappingOffice& office);
    void openLabelDocument(MappingOffice& office);
    /// The keys of the fields that a table is to have, if the command line lists any.
    [[nodiscard]] std::optional<FieldKeys> chosenFields(const MappingSource& source,
                                                        const TreeNode& object) const;
    bool dropObject(MappingOffice& office, const MappingSource& source, const MappedObject& object);
    void save(MappingOffice& office);
    void checkMayReplace(const MappingOffice& office, const std::string& target) const;
    void tell(const std::string& text);

    WordStarter startWord_;
    ExcelStarter startExcel_;
    const OfficeFormats& formats_;
    ErrorHandler& errors_;
    Messages& messages_;
    Progress& progress_;
    bool allowExistingTemplate_ = false;
    MappingArguments arguments_;
    std::string documentsFolder_;
    std::string templatesFolder_;
};

}  // namespace mergeloom
