#pragma once

#include "app/ConversionResult.h"
#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "base/FileStore.h"
#include "office/model/word/Document.h"
#include "office/model/word/Fields.h"

#include <string>
#include <vector>

namespace mergeloom {

inline constexpr ErrorNumber kTemplateNotFound = 30014;

/// Turns the fields with which other tools mark their data places into places of this program: the fields of
/// Word's mail merge and the QUOTE and IF fields that Quillbind writes. A field becomes its data name as
/// text, in the formatting of its result, with a bookmark of that name around it; a field without such a name
/// is removed. A field in whose code several merge fields are nested becomes a place for each of their names,
/// with a blank between them. In the code of a field that stays nothing is converted. Converts one document
/// at a time.
class ConvertMailMergeFields {
  public:
    /// The office is started only for a document that is named by its path.
    ConvertMailMergeFields(WordStarter startWord, FileStore& files, ErrorHandler& errors)
        : startWord_(std::move(startWord)), files_(files), errors_(errors) {}
    ConvertMailMergeFields(const ConvertMailMergeFields&) = delete;
    ConvertMailMergeFields& operator=(const ConvertMailMergeFields&) = delete;
    /// Releases the template.
    ~ConvertMailMergeFields() { ReleaseTemplate(); }

    void SetTemplatePath(const std::string& path) { templatePath_ = path; }
    /// Sets a document that is open already; it is neither saved nor closed here.
    void SetTemplate(word::DocumentPtr document) { template_ = std::move(document); }
    /// Returns the document, which is opened from the template's path on first use. Raises kTemplateNotFound
    /// when it does not exist or cannot be opened.
    word::DocumentPtr Template();

    /// Converts the fields of both kinds and releases the template. Raises kTemplateNotFound; all other
    /// errors are reported.
    void Execute();

    /// Converts QUOTE fields, named by the second piece of their code, and IF fields, named by the fifth,
    /// unless fields nested in the code have the names. A code of fewer pieces is reported and ends the pass.
    void ConvertQuillbindFields(word::Document& document);
    /// Converts the fields of a mail merge, named by the second piece of their code. C++ keeps the name of
    /// the class itself for its constructors; reports call this procedure by that name.
    void ConvertMergeFields(word::Document& document);
    /// Replaces a field by the name without its quotes, made a bookmark's name, and marks it with a bookmark
    /// of that name. An empty name changes nothing. Raises kCommandFailed for a name of which nothing is
    /// left. Errors of the office pass through; the text may be in the field's place then.
    void ReplaceFieldWithBookmark(word::Document& document, word::Field& field, const std::string& name);

    /// Saves and closes a document that was opened here, and its office when that has no other document.
    void ReleaseTemplate();

    [[nodiscard]] const ConversionResult& result() const { return result_; }

  private:
    word::DocumentPtr open();
    /// Runs the body, which changes the document; returns false, with the document as it was before, when it
    /// fails.
    template <typename Body>
    bool isDone(word::Document& document, const Body& body);
    /// Keeps the sentence of an office that must not edit a place.
    void noteRefusal(const AutomationError& error);
    void replaceOrDelete(word::Document& document, word::Field& field, const std::vector<std::string>& names);
    void replaceField(word::Document& document, word::Field& field, const std::vector<std::string>& names);
    void removeField(word::Document& document, word::Field& field);
    void markSelection(word::Document& document, const std::string& bookmarkName);
    template <typename Body>
    void trapPass(const char* procedure, const Body& body);

    WordStarter startWord_;
    FileStore& files_;
    ErrorHandler& errors_;
    std::string templatePath_;
    word::ApplicationPtr application_;  // of a document that was opened here
    word::DocumentPtr template_;
    bool openedHere_ = false;
    ConversionResult result_;
};

}  // namespace mergeloom
