#include "app/ConvertFieldsCommand.h"

#include "app/FileFormats.h"
#include "app/StartedOffice.h"
#include "app/modMain.h"
#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/model/word/Documents.h"
#include "office/model/word/Fields.h"
#include "office/model/word/MailMerge.h"

#include <map>

namespace mergeloom {

namespace {

std::string counted(int count, const char* one, const char* several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

void tellMovedBookmarks(const std::vector<std::string>& names, std::ostream& report) {
    // Bookmarks are the same whatever their letter case; the last one's is what the document shows.
    std::map<std::string, std::string> last;
    for (const std::string& name : names)
        last[foldCase(name)] = name;
    for (const auto& [folded, name] : last) {
        report << "The bookmark '" << name
               << "' stands around the last place of that name; the others are plain text.\n";
    }
}

void tell(const ConversionResult& result, int left, const std::string& backup, std::ostream& report) {
    report << counted(result.places, "field", "fields") << " became "
           << (result.places == 1 ? "a place, " : "places, ")
           << counted(result.removed, "was removed.\n", "were removed.\n");
    if (left > 0) report << counted(left, "field has", "fields have") << " no usable name and stayed.\n";
    tellMovedBookmarks(result.movedBookmarks, report);
    if (!backup.empty()) report << "The file as it was is kept in '" << backup << "'.\n";
}

/// How many fields of the old kinds a document still has.
int oldFieldsLeft(word::Document& document) {
    int count = document.MailMerge()->Fields()->Count();
    const word::FieldsPtr fields = document.Fields();
    for (int number = 1; number <= fields->Count(); ++number) {
        const word::WdFieldType type = fields->Item(number)->Type();
        if (type == word::WdFieldType::wdFieldQuote || type == word::WdFieldType::wdFieldIf) ++count;
    }
    return count;
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

    const StartedOffice office{startWord_(), errors_};
    const word::DocumentPtr document = office->Documents()->Open(source);
    const ConversionResult result = convert(document);
    std::string backup;
    if (!isInPlace || !document->Saved()) {
        // The document itself is there, even if the disk fails to say so now.
        if (isInPlace || files_.fileExists(target)) backup = keep(target);
        isInPlace ? document->Save() : document->SaveAs(target, formats_.documentFormatOf(target));
    }
    tell(result, oldFieldsLeft(*document), backup, report);
    return !result.failed;
}

ConversionResult ConvertFieldsCommand::convert(const word::DocumentPtr& document) {
    ConvertMailMergeFields conversion{[] { return word::ApplicationPtr(); }, files_, errors_};
    conversion.SetTemplate(document);
    conversion.Execute();
    return conversion.result();
}

void ConvertFieldsCommand::checkTarget(const std::string& target, bool isInPlace) {
    // A file of Word's own kind is saved as what it is, whatever its name.
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

std::string ConvertFieldsCommand::keep(const std::string& target) {
    std::string path = backupPath(target, files_.read(target));
    if (!files_.fileExists(path)) files_.copy(target, path);
    return path;
}

std::string ConvertFieldsCommand::backupPath(const std::string& target, const std::string& bytes) {
    std::string path = target + ".bak";
    for (int number = 1; files_.fileExists(path) && files_.read(path) != bytes; ++number) {
        path = target + ".bak" + std::to_string(number);
    }
    return path;
}

}  // namespace mergeloom
