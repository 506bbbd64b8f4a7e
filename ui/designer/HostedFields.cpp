#include "ui/designer/HostedFields.h"

#include "app/ConvertMailMergeFields.h"
#include "base/AutomationError.h"
#include "ui/designer/HostEditing.h"

#include <string>
#include <variant>

namespace mergeloom {

namespace {

std::string counted(int count, const char* one, const char* several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string summaryOf(const ConversionResult& result) {
    std::string text = counted(result.places, "field became a place", "fields became places") + ", " +
                       counted(result.removed, "was removed.", "were removed.");
    if (!result.movedBookmarks.empty()) {
        text += "\r\n" + counted(static_cast<int>(result.movedBookmarks.size()), "bookmark", "bookmarks") +
                " moved to the last place of that name; the others are plain text.";
    }
    return text;
}

}  // namespace

void convertHostedFields(DocumentHost& host, FileStore& files, ErrorHandler& errors, Messages& messages) {
    ConversionResult result;
    {
        const HostEditing editing(host);
        const HostedDocument hosted = host.ActiveDocument();
        const auto* const document = std::get_if<word::DocumentPtr>(&hosted);
        if (document == nullptr) return;
        ConvertMailMergeFields conversion{
            []() -> word::ApplicationPtr { throw AutomationError(kNotAvailable, "No office is started."); },
            files, errors};
        conversion.SetTemplate(*document);
        conversion.Execute();
        result = conversion.result();
    }
    if (!result.failed)
        (void)messages.show({summaryOf(result), MessageIcon::Information, MessageButtons::Ok});
}

}  // namespace mergeloom
