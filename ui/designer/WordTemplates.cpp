#include "ui/designer/WordTemplates.h"

#include "app/ConvertMailMergeFields.h"
#include "app/FileFormats.h"
#include "app/MergeloomErrorCodes.h"
#include "base/AutomationError.h"
#include "office/formats/TemplateFormats.h"
#include "office/formats/mOfficeVersion.h"
#include "office/formats/mWordFileExtensions.h"
#include "office/model/word/Application.h"
#include "ui/designer/DocumentErrors.h"

#include <algorithm>
#include <array>
#include <string>
#include <variant>

namespace mergeloom {

namespace {

std::string withoutLastBreak(std::string text) {
    if (text.ends_with('\n')) text.pop_back();
    return text;
}

constexpr TemplateTexts kWordTexts{
    .officeName = "Word",
    .newCaption = "New Template",
    .typeName = "Word Template",
    .wrongFile = "The file selected is not Word file.",
    .openProcedure = "OpenWordTemplate",
    .saveProcedure = "SaveWordTemplate",
    .keptExtension = "odt",
};

/// The program identifiers of templates, the newest last: the others open in the view that users expect.
constexpr std::array kProgramIdentifiers{"Word.Template.8", "Word.Template", "Word.Template.12"};

constexpr int kZoomPercent = 100;

}  // namespace

void convertHostedFields(DocumentHost& host, FileStore& files, ErrorHandler& errors, Messages& messages) {
    if (refusesUnderDialog(host, messages) || refusesChanges(host, messages)) return;
    ConversionResult result;
    {
        const HostEditing editing(host);
        const HostedDocument hosted = host.ActiveDocument();
        const auto* const document = std::get_if<word::DocumentPtr>(&hosted);
        if (document == nullptr) return;
        DocumentErrors named(errors, nameOf(hosted));
        ConvertMailMergeFields conversion{
            []() -> word::ApplicationPtr { throw AutomationError(kNotAvailable, "No office is started."); },
            files, named};
        conversion.SetTemplate(*document);
        conversion.Execute();
        result = conversion.result();
    }
    if (!result.failed)
        (void)messages.show(
            {withoutLastBreak(conversionReport(result)), MessageIcon::Information, MessageButtons::Ok});
}

const TemplateTexts& WordTemplates::texts() const {
    return kWordTexts;
}

bool WordTemplates::createNew() {
    if (createOfAnyProgram()) return true;
    messages_.show(
        {"Word.Template.8 and Word.Template are not registered.\r\n"
         "Try to reinstall Microsoft Word.",
         MessageIcon::Critical, MessageButtons::Ok});
    return false;
}

bool WordTemplates::createOfAnyProgram() {
    return std::ranges::any_of(kProgramIdentifiers,
                               [this](const char* identifier) { return create(identifier); });
}

bool WordTemplates::create(const char* programIdentifier) {
    try {
        access_.host().CreateNew(programIdentifier);
        return true;
    } catch (const AutomationError& error) {
        // An office that has ended knows no program at all.
        if (error.number() == kNotAvailable) throw;
        return false;
    }
}

std::string WordTemplates::fileToOpen(const std::string& path) {
    // The hidden office cannot decrypt the template to convert it, so the user edits the template itself.
    if (!TemplateConversion::isConverted(path) || files_.isEncrypted(path)) return path;
    std::string target = savedAsName_.empty() ? conversion_.targetOf(path) : savedAsName_;
    savedAsName_.clear();
    if (!conversion_.convert(path, target)) RaiseMappingError(kTemplateFormatNotSupported, {path});
    return target;
}

void WordTemplates::setUpView() {
    DocumentHost& host = access_.host();
    host.setCommandBarVisible("Standard", true);
    host.setCommandBarVisible("Formatting", true);
    host.setCommandBarVisible("Web", false);
    host.setZoom(kZoomPercent);
    if (!earlierShowBookmarks_) earlierShowBookmarks_ = host.showsBookmarks();
    host.setShowsBookmarks(true);
    host.focusOpened();
    if (host.allowsDragAndDrop()) return;
    messages_.show(
        {"For the Mergeloom to work it is necessary that in Microsoft Word \r\n"
         "you switch on the option \"Allow text to be dragged and dropped\"",
         MessageIcon::Information, MessageButtons::Ok});
}

void WordTemplates::restoreView() {
    if (!earlierShowBookmarks_) return;
    access_.host().setShowsBookmarks(*earlierShowBookmarks_);
    earlierShowBookmarks_.reset();
}

word::DocumentPtr WordTemplates::hosted() {
    const HostedDocument document = access_.host().ActiveDocument();
    const auto* const found = std::get_if<word::DocumentPtr>(&document);
    return found == nullptr ? nullptr : *found;
}

model::OfficeDocument* WordTemplates::document() {
    document_ = hosted();
    return document_.get();
}

std::vector<OfferedFormat> WordTemplates::templateFormats(FormatUse use) {
    const word::ApplicationPtr office = hosted()->Application();
    return formatsOfTemplates(DocumentFamily::Word, majorOfficeVersion(office->Version()), [&](int format) {
        return use == FormatUse::Open || office->canSaveAs(static_cast<word::WdSaveFormat>(format));
    });
}

bool WordTemplates::knowsExtensionOf(const std::string& path) const {
    return hasWordExtension(path);
}

bool WordTemplates::keepsPlaces(const std::string& path) const {
    return mergeloom::keepsPlaces(DocumentFamily::Word, static_cast<int>(wordFormatOf(path)));
}

bool WordTemplates::losesPassword(const std::string& path) {
    return access_.host().losesPassword(static_cast<int>(wordFormatOf(path)));
}

void WordTemplates::saveAs(const std::string& path) {
    hosted()->SaveAs(path, wordFormatOf(path));
}

/// Editing keeps the user from typing meanwhile.
void WordTemplates::exportCopy(const std::string& path) {
    const HostEditing editing(access_.host());
    access_.host().ExportCopy(path, static_cast<int>(wordFormatOf(path)));
}

}  // namespace mergeloom
