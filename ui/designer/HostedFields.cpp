#include "ui/designer/HostedFields.h"

#include "app/ConvertMailMergeFields.h"
#include "base/AutomationError.h"
#include "ui/designer/HostEditing.h"

#include <string>
#include <variant>

namespace mergeloom {

namespace {

std::string withoutLastBreak(std::string text) {
    if (text.ends_with('\n')) text.pop_back();
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
        (void)messages.show(
            {withoutLastBreak(conversionReport(result)), MessageIcon::Information, MessageButtons::Ok});
}

}  // namespace mergeloom
