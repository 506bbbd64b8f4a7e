#pragma once

#include "app/ConversionResult.h"
#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "base/FileStore.h"
#include "office/model/word/Document.h"
#include "office/model/word/Fields.h"

#include <compare>
#include <set>
#include <string>
#include <vector>

namespace mergeloom {

inline constexpr ErrorNumber kTemplateNotFound = 30014;

/// Turns the fields with which other tools mark their data places into places of this program: the fields of
/// Word's mail merge and the QUOTE and IF fields that Quillbind writes. A field becomes its data name as
/// text, in the formatting of its result, with a bookmark of that name around it; a field without such a name
/// is removed. A field in whose code several merge fields are nested becomes a place for each of their names,
/// with a blank between them. Fields in the code of a field that stays are not converted. The conversion is
/// one step of the document's undo list. Converts one document at a time.
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
    /// unless fields nested in the code have the names. A code of fewer pieces is reported and ends the pass,
    /// unless another field is nested in it: such a field is not changed.
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
    enum class Pass { Quillbind, MailMerge };
    enum class Change { Replace, Remove };
    enum class Outcome {
        Done,
        Fails,   ///< an earlier attempt at the same change failed; the document is unchanged
        Failed,  ///< the document may be half changed: it has to be taken back
    };
    /// Changes one field, which is identified by its number in its pass.
    struct Attempt {
        Pass pass = Pass::Quillbind;
        int number = 0;
        Change change = Change::Replace;
        auto operator<=>(const Attempt&) const = default;
    };

    /// Keeps the errors that ended a pass, which may be made again.
    class Reports final : public ErrorHandler {
      public:
        void report(const ErrorReport& report) override { all.push_back(report); }

        std::vector<ErrorReport> all;
    };

    word::DocumentPtr open();
    /// Runs the body, which converts fields, as one step. An office cannot take back a part of a step, so the
    /// whole of it is taken back after changes that failed, and made again without them.
    template <typename Body>
    void inOneStep(word::Document& document, const Body& body);
    template <typename Body>
    Outcome attempt(Change change, const Body& body);
    void runQuillbindPass(word::Document& document);
    void runMailMergePass(word::Document& document);
    /// Keeps the sentence of an office that must not edit a place.
    void noteRefusal(const AutomationError& error);
    void replaceOrDelete(word::Document& document, word::Field& field, const std::vector<std::string>& names);
    void replaceField(word::Document& document, word::Field& field, const std::vector<std::string>& names);
    void removeField(word::Field& field);
    void markSelection(word::Document& document, const std::string& bookmarkName);
    template <typename Body>
    void trapPass(ErrorHandler& errors, const char* procedure, const Body& body);

    WordStarter startWord_;
    FileStore& files_;
    ErrorHandler& errors_;
    std::string templatePath_;
    word::ApplicationPtr application_;  // of a document that was opened here
    word::DocumentPtr template_;
    bool openedHere_ = false;
    ConversionResult result_;
    Attempt current_;
    std::set<Attempt> failures_;
    std::vector<std::string> refusals_;
    bool hasNewFailure_ = false;
    Reports reports_;
};

}  // namespace mergeloom
