#include "app/ConvertFieldsCommand.h"

#include "app/FileFormats.h"
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

}  // namespace

bool ConvertFieldsCommand::run(const std::string& file, const std::string& output, std::ostream& report) {
    const std::string source = fullPath(file);
    const std::string target = output.empty() ? source : fullPath(output);
    const bool isInPlace = target == source;
    checkTarget(target, isInPlace);

    const word::DocumentPtr document = office_.Documents()->Open(source);
    const ConversionResult result = convert(document);
    std::string backup;
    if (!isInPlace || !document->Saved()) {
        // The document itself is there, even if the disk fails to say so now.
        if (isInPlace || files_.fileExists(target)) backup = keep(target);
        isInPlace ? document->Save() : document->SaveAs(target, wordFormatOf(target));
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
    const std::string start = "The file '" + target + "' cannot be saved: ";
    if (!isInPlace && !office_.canSaveAs(wordFormatOf(target))) {
        throw AutomationError(kFileCouldNotBeSaved,
                              start + "its format is not available. Choose docx, docm, dotx or dotm.");
    }
    if (files_.fileExists(target) && IsFileLocked(target)) {
        throw AutomationError(kFileCouldNotBeSaved, start + "it is open elsewhere.");
    }
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
