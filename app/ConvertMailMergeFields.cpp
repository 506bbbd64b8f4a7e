#include "app/ConvertMailMergeFields.h"

#include "app/FieldDataNames.h"
#include "base/ErrorHandler.h"
#include "droppers/DropRecord.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/Undo.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/FieldCode.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>

namespace mergeloom {

namespace {

constexpr const char* kConversionModule = "ConvertMailMergeFields";

/// Runs the body, whose errors nobody has to know of; returns whether it succeeded.
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

/// Returns true unless the field was removed together with one around it.
bool stillExists(word::Field& field) {
    try {
        (void)field.Type();
        return true;
    } catch (const AutomationError& error) {
        if (error.number() != kObjectDeleted) throw;
        return false;
    }
}

bool canBecomeText(word::Field& field) {
    return stillExists(field) && !field.isInCode();
}

/// Returns none when the office does not keep the code: the meaning of the field is unknown, so it stays.
std::optional<std::vector<std::string>> namesOf(word::Field& field, std::size_t ownPiece) {
    try {
        return dataNames(field, ownPiece);
    } catch (const AutomationError& error) {
        if (error.number() != kNotAvailable) throw;
        return std::nullopt;
    }
}

LeftField leftField(word::Field& field) {
    try {
        return {word::shownCode(field.Code()->Text()),
                field.isInCode() ? WhyLeft::InCode : WhyLeft::NotConverted};
    } catch (const AutomationError& error) {
        if (error.number() != kNotAvailable) throw;
        return {error.description(), WhyLeft::CodeUnknown};
    }
}

/// Returns the fields of the old kinds; every other field has no type.
std::vector<LeftField> leftFields(word::Document& document) {
    std::vector<LeftField> left;
    const word::FieldsPtr fields = document.Fields();
    for (int number = 1; number <= fields->Count(); ++number) {
        const word::FieldPtr field = fields->Item(number);
        if (field->Type() != word::WdFieldType::wdFieldEmpty) left.push_back(leftField(*field));
    }
    return left;
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
    const auto convert = [&] {
        inOneStep(*document, [&] {
            runQuillbindPass(*document);
            if (!hasNewFailure_) runMailMergePass(*document);
        });
        result_.left = leftFields(*document);
    };
    trapPass(errors_, "Execute", convert);
    ReleaseTemplate();
}

void ConvertMailMergeFields::ConvertQuillbindFields(word::Document& document) {
    inOneStep(document, [&] { runQuillbindPass(document); });
}

void ConvertMailMergeFields::ConvertMergeFields(word::Document& document) {
    inOneStep(document, [&] { runMailMergePass(document); });
}

template <typename Body>
void ConvertMailMergeFields::inOneStep(word::Document& document, const Body& body) {
    const model::UndoRecordPtr steps = document.Application()->UndoRecord();
    const ConversionResult before = result_;
    failures_.clear();
    do {
        DropRecord step(document, *steps, "Convert Merge Fields");
        hasNewFailure_ = false;
        reports_.all.clear();
        result_ = before;
        body();
        hasNewFailure_ ? step.takeBack() : step.keep();
    } while (hasNewFailure_);
    result_.refusals = refusals_;
    for (const ErrorReport& report : std::exchange(reports_.all, {}))
        errors_.report(report);
}

void ConvertMailMergeFields::runQuillbindPass(word::Document& document) {
    trapPass(reports_, "ConvertQuillbindFields", [&] {
        const word::FieldsPtr fields = document.Fields();
        for (int number = 1; number <= fields->Count(); ++number) {
            const word::FieldPtr field = fields->Item(number);
            current_ = {Pass::Quillbind, number};
            if (!canBecomeText(*field)) continue;
            const word::WdFieldType type = field->Type();
            const bool isIf = type == word::WdFieldType::wdFieldIf;
            if (!isIf && type != word::WdFieldType::wdFieldQuote) continue;
            const auto names = namesOf(*field, isIf ? kNameInIf : kNameInQuote);
            if (names && !names->empty()) replaceOrDelete(document, *field, *names);
        }
    });
}

void ConvertMailMergeFields::runMailMergePass(word::Document& document) {
    trapPass(reports_, "ConvertMailMergeFields", [&] {
        const word::FieldsPtr fields = document.MailMerge()->Fields();
        for (int number = 1; number <= fields->Count(); ++number) {
            const word::FieldPtr field = fields->Item(number);
            current_ = {Pass::MailMerge, number};
            if (!canBecomeText(*field)) continue;
            std::optional<std::vector<std::string>> names;
            const bool isNamed = succeeds([&] { names = namesOf(*field, kNameInMergeField); });
            if (!isNamed) {
                removeField(*field);
            } else if (names) {
                replaceOrDelete(document, *field, *names);
            }
        }
    });
}

template <typename Body>
ConvertMailMergeFields::Outcome ConvertMailMergeFields::attempt(Change change, const Body& body) {
    current_.change = change;
    if (failures_.contains(current_)) return Outcome::Fails;
    try {
        body();
        return Outcome::Done;
    } catch (const AutomationError& error) {
        noteRefusal(error);
    } catch (const std::exception&) {
        // As any field that cannot be converted, it is reported among those that stayed.
    }
    failures_.insert(current_);
    hasNewFailure_ = true;
    return Outcome::Failed;
}

void ConvertMailMergeFields::noteRefusal(const AutomationError& error) {
    if (error.number() != kNotAvailable) return;
    if (std::ranges::find(refusals_, error.description()) == refusals_.end())
        refusals_.push_back(error.description());
}

void ConvertMailMergeFields::replaceOrDelete(word::Document& document, word::Field& field,
                                             const std::vector<std::string>& names) {
    const int placesBefore = result_.places;
    switch (attempt(Change::Replace, [&] { replaceField(document, field, names); })) {
        case Outcome::Done:
            if (result_.places > placesBefore) ++result_.fields;
            return;
        case Outcome::Fails:
            removeField(field);
            return;
        case Outcome::Failed:
            return;
    }
}

void ConvertMailMergeFields::removeField(word::Field& field) {
    std::string code;
    const Outcome outcome = attempt(Change::Remove, [&] {
        code = field.Code()->Text();
        field.Delete();
    });
    if (outcome == Outcome::Done) result_.removed.push_back(word::shownCode(code));
}

void ConvertMailMergeFields::replaceField(word::Document& document, word::Field& field,
                                          const std::vector<std::string>& names) {
    ReplaceFieldWithBookmark(document, field, names.front());
    const word::SelectionPtr selection = document.ActiveWindow()->Selection();
    for (auto name = names.begin() + 1; name != names.end(); ++name) {
        selection->Collapse(word::WdCollapseDirection::wdCollapseEnd);
        selection->TypeText(" ");
        markSelection(document, WordNormalizeName(*name, false));
    }
}

void ConvertMailMergeFields::ReplaceFieldWithBookmark(word::Document& document, word::Field& field,
                                                      const std::string& name) {
    const std::string dataName = withoutQuotes(name);
    if (dataName.empty()) return;
    const std::string bookmarkName = WordNormalizeName(dataName, false);
    if (bookmarkName.empty())
        throw AutomationError(kCommandFailed, "No bookmark can be named '" + dataName + "'.");
    field.Select();
    markSelection(document, bookmarkName);
}

void ConvertMailMergeFields::markSelection(word::Document& document, const std::string& bookmarkName) {
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
void ConvertMailMergeFields::trapPass(ErrorHandler& errors, const char* procedure, const Body& body) {
    bool done = false;
    trap(errors, kConversionModule, procedure, [&] {
        body();
        done = true;
    });
    if (!done) result_.failed = true;
}

}  // namespace mergeloom
