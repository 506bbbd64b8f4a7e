#pragma once

#include "app/MappingArguments.h"
#include "app/MappingSource.h"
#include "app/WordStarter.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "droppers/DropContext.h"
#include "office/model/word/Application.h"

#include <optional>
#include <string>

namespace mergeloom {

/// Makes a template without a user: drops the structure document's first object into a new or given document,
/// saves that and closes the office that it started.
class CAutoMapping {
  public:
    CAutoMapping(WordStarter startWord, ErrorHandler& errors, Messages& messages, Progress& progress)
        : startWord_(std::move(startWord)), errors_(errors), messages_(messages), progress_(progress) {}

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
    bool canWriteTarget(word::Application& application);
    word::DocumentPtr makeDocument(word::Application& application);
    word::DocumentPtr openLabelDocument(word::Application& application);
    /// The keys of the fields that a table is to have, if the command line lists any.
    [[nodiscard]] std::optional<FieldKeys> chosenFields(const MappingSource& source,
                                                        const TreeNode& object) const;
    bool dropObject(const MappingSource& source, const TreeNode& object,
                    const std::optional<FieldKeys>& fields, const word::DocumentPtr& document);
    bool save(word::Document& document);
    bool refuse(const std::string& text);
    [[nodiscard]] word::WdSaveFormat targetFormat() const;

    WordStarter startWord_;
    ErrorHandler& errors_;
    Messages& messages_;
    Progress& progress_;
    bool allowExistingTemplate_ = false;
    MappingArguments arguments_;
    std::string documentsFolder_;
    std::string templatesFolder_;
};

}  // namespace mergeloom
