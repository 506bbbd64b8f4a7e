#include "app/ConvertFieldsCommand.h"

#include "app/FileFormats.h"
#include "app/ScopedOffice.h"
#include "app/modMain.h"
#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/model/word/Document.h"

#include <algorithm>

namespace mergeloom {

namespace {

/// Refuses a document with a field whose code the office does not keep, since it would be saved without it.
void checkCodes(const std::vector<LeftField>& left, const std::string& source) {
    const auto unknown = std::ranges::find(left, WhyLeft::CodeUnknown, &LeftField::why);
    if (unknown == left.end()) return;
    throw AutomationError(kNotAvailable, "The file '" + source + "' is not converted: " + unknown->text);
}

[[noreturn]] void raiseNotSaved(const std::string& target, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + target + "' cannot be saved: " + reason);
}

}  // namespace

bool ConvertFieldsCommand::run(const std::string& file, const std::string& output, std::ostream& report) {
    const std::string source = fullPath(file);
    const std::string target = output.empty() ? source : fullPath(output);
    const bool isInPlace = target == source;
    checkTarget(target, isInPlace);
    checkSource(source);

    const ScopedOffice office{startWord_(), errors_};
    const word::DocumentPtr document = office->Documents()->Open(source);
    const ConversionResult result = convert(document);
    checkCodes(result.left, source);
    std::string backup;
    if (!isInPlace || !document->Saved()) {
        // The document itself exists, even if the disk fails to say so now.
        if (isInPlace || files_.fileExists(target)) backup = keepBackup(files_, target);
        isInPlace ? document->Save() : document->SaveAs(target, formats_.documentFormatOf(target));
    }
    report << conversionReport(result);
    if (!backup.empty()) report << "The file as it was is kept in '" << backup << "'.\n";
    return !result.failed && result.refusals.empty();
}

ConversionResult ConvertFieldsCommand::convert(const word::DocumentPtr& document) {
    ConvertMailMergeFields conversion{[] { return word::ApplicationPtr(); }, files_, errors_};
    conversion.SetTemplate(document);
    conversion.Execute();
    return conversion.result();
}

void ConvertFieldsCommand::checkTarget(const std::string& target, bool isInPlace) {
    // Files of Word's own kind keep their format, whatever their name.
    if (!isInPlace || isForeignWordFile(target)) checkFormat(target);
    if (files_.fileExists(target) && IsFileLocked(target)) raiseNotSaved(target, "it is open elsewhere.");
}

void ConvertFieldsCommand::checkFormat(const std::string& target) const {
    const std::string reason = "its format is not available. ";
    if (!hasWordExtension(target)) raiseNotSaved(target, reason + "Choose docx, docm, dotx or dotm.");
    const std::string refusal = formats_.refusalToWrite(formats_.documentFormatOf(target));
    if (!refusal.empty()) raiseNotSaved(target, reason + refusal);
}

void ConvertFieldsCommand::checkSource(const std::string& source) const {
    const std::string refusal = formats_.refusalToOpenDocument(source);
    if (!refusal.empty()) throw AutomationError(kNotAvailable, refusal);
}

}  // namespace mergeloom
