#include "app/MergeloomErrorCodes.h"

#include "base/ErrorHandler.h"
#include "base/Text.h"

#include <string_view>

namespace mergeloom {

namespace {

constexpr std::string_view kMessages =
    "XML file is not defined.;"
    "XML file does not exist.;"
    "XML file is incorrect.;"
    "UseDocument does not exist.;"
    "Template is not defined.;"
    "The folder for template does not exist.;"
    "Template already exists.;"
    ";"
    "LabelDocument does not exist.;"
    "LabelDocument is incorrect.;"
    "FieldList is not defined.;"
    "FieldList is incorrect.;"
    "File '%1' does not exist.;"
    "Template '%1' has unsupported file format.\r\n"
    "Please convert it to Word 97-2003 template and try again.;"
    "Template '%1' is already opened.\r\n"
    "Please close it and try again.";

/// The error of an object that was unloaded while the program ended.
constexpr ErrorNumber kObjectUnloaded = 364;

}  // namespace

void RaiseMappingError(ErrorNumber code, const std::vector<std::string>& parameters) {
    throw AutomationError(code, GetMappingErrorText(code, parameters));
}

std::string GetMappingErrorText(ErrorNumber code, const std::vector<std::string>& parameters) {
    if (!isMappingError(code)) throw AutomationError(kSubscriptOutOfRange, "Subscript out of range");
    std::string text(split(kMessages, ';')[code - kFirstMappingError]);
    for (std::size_t k = 0; k < parameters.size(); ++k) {
        text = replaceAll(text, "%" + std::to_string(k + 1), parameters[k]);
    }
    return text;
}

void reportEntryError(const AutomationError& error, ErrorHandler& errors, Messages& messages) {
    if (error.number() == kObjectUnloaded) return;
    if (!isMappingError(error.number())) {
        errors.report(
            {error.number(), error.description(), {}, "modMain", "Main", shownPlace(error.place())});
    } else if (!error.description().empty()) {
        messages.show({error.description(), MessageIcon::Exclamation, MessageButtons::Ok});
    }
}

}  // namespace mergeloom
