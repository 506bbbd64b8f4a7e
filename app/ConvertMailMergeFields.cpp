#include "app/ConvertMailMergeFields.h"

#include "base/Text.h"
#include "base/Trap.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Documents.h"
#include "office/model/word/Fields.h"
#include "office/model/word/MailMerge.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Window.h"

#include <exception>
#include <optional>
#include <string_view>

namespace mergeloom {

namespace {

constexpr const char* kModule = "ConvertMailMergeFields";

// Which word of a field's code names the data, counted from 0.
constexpr std::size_t kNameInQuote = 1;
constexpr std::size_t kNameInIf = 4;
constexpr std::size_t kNameInMergeField = 1;

/// Runs what may fail without anybody being told; tells whether it did not.
template <typename Body>
bool succeeds(const Body& body) {
    try {
        body();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

[[noreturn]] void raiseNotFound() {
    throw AutomationError(kTemplateNotFound, "Template is not found");
}

/// None for a field that went together with one around it.
std::optional<std::string> codeOf(word::Field& field) {
    try {
        return field.Code()->Text();
    } catch (const AutomationError& error) {
        if (error.number() != kObjectDeleted) throw;
        return std::nullopt;
    }
}

/// A word of the code, where every single blank ends a word. Raises kSubscriptOutOfRange beyond the last one.
std::string wordOf(const std::string& code, std::size_t index) {
    const std::vector<std::string_view> words = split(trimBlanks(code), ' ');
    if (index >= words.size()) {
        throw AutomationError(kSubscriptOutOfRange,
                              "The field '" + std::string(trimBlanks(code)) + "' has too few words.");
    }
    return std::string(words[index]);
}

std::string quillbindName(word::WdFieldType type, const std::string& code) {
    if (type == word::WdFieldType::wdFieldQuote) return wordOf(code, kNameInQuote);
    if (type == word::WdFieldType::wdFieldIf) return wordOf(code, kNameInIf);
    return {};
}

std::string withoutQuotes(const std::string& name) {
    const bool isQuoted = name.size() > 1 && name.starts_with('"') && name.ends_with('"');
    return isQuoted ? name.substr(1, name.size() - 2) : name;
}

}  // namespace

word::DocumentPtr ConvertMailMergeFields::Template() {
    if (template_) return template_;
    if (!files_.fileExists(templatePath_)) raiseNotFound();
    succeeds([this] { template_ = open(); });
    if (!template_) raiseNotFound();
    openedHere_ = true;
    return template_;
}

word::DocumentPtr ConvertMailMergeFields::open() {
    application_ = startWord_();
    return application_->Documents()->Open(templatePath_);
}

void ConvertMailMergeFields::Execute() {
    const word::DocumentPtr document = Template();
    trapPass("Execute", [&] {
        ConvertQuillbindFields(*document);
        ConvertMergeFields(*document);
    });
    ReleaseTemplate();
}

void ConvertMailMergeFields::ConvertQuillbindFields(word::Document& document) {
    trapPass("ConvertQuillbindFields", [&] {
        const word::FieldsPtr fields = document.Fields();
        for (int number = 1; number <= fields->Count(); ++number) {
            const word::FieldPtr field = fields->Item(number);
            const std::optional<std::string> code = codeOf(*field);
            if (code) replaceOrDelete(document, *field, quillbindName(field->Type(), *code));
        }
    });
}

void ConvertMailMergeFields::ConvertMergeFields(word::Document& document) {
    trapPass("ConvertMailMergeFields", [&] {
        const word::FieldsPtr fields = document.MailMerge()->Fields();
        for (int number = 1; number <= fields->Count(); ++number) {
            const word::FieldPtr field = fields->Item(number);
            std::optional<std::string> code;
            std::string name;
            const bool isNamed = succeeds([&] {
                code = codeOf(*field);
                if (code) name = wordOf(*code, kNameInMergeField);
            });
            isNamed ? replaceOrDelete(document, *field, name) : removeField(*field);
        }
    });
}

void ConvertMailMergeFields::replaceOrDelete(word::Document& document, word::Field& field,
                                             const std::string& name) {
    if (!succeeds([&] { ReplaceFieldWithBookmark(document, field, name); })) removeField(field);
}

void ConvertMailMergeFields::removeField(word::Field& field) {
    bool isGone = succeeds([&] { field.Delete(); });
    // The office may have taken the field away before it failed to mark the text.
    if (!isGone) succeeds([&] { isGone = !codeOf(field); });
    if (isGone) ++result_.removed;
}

void ConvertMailMergeFields::ReplaceFieldWithBookmark(word::Document& document, word::Field& field,
                                                      const std::string& name) {
    const std::string dataName = withoutQuotes(name);
    if (dataName.empty()) return;
    const std::string bookmarkName = WordNormalizeName(dataName, false);
    field.Select();
    const word::SelectionPtr selection = document.ActiveWindow()->Selection();
    selection->SetText(bookmarkName);
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    const bool moves = bookmarks->Exists(bookmarkName);
    bookmarks->Add(bookmarkName, *selection->Range());
    ++result_.places;
    if (moves) result_.movedBookmarks.push_back(bookmarkName);
}

void ConvertMailMergeFields::ReleaseTemplate() {
    if (openedHere_) {
        word::ApplicationPtr ending;
        succeeds([&] {
            const word::ApplicationPtr application = template_->Application();
            if (application->Documents()->Count() == 1) ending = application;
        });
        succeeds([&] { template_->Close(word::WdSaveOptions::wdSaveChanges); });
        if (ending) succeeds([&] { ending->Quit(word::WdSaveOptions::wdSaveChanges); });
    }
    openedHere_ = false;
    template_.reset();
    application_.reset();
}

template <typename Body>
void ConvertMailMergeFields::trapPass(const char* procedure, const Body& body) {
    bool done = false;
    trap(errors_, kModule, procedure, [&] {
        body();
        done = true;
    });
    if (!done) result_.failed = true;
}

}  // namespace mergeloom
