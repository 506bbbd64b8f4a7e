#pragma once

#include "base/AutomationError.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"

#include <stdexcept>
#include <string>
#include <vector>

/// The numbered errors of a mapping that runs without a user, and of the opening of templates.
namespace mergeloom {

inline constexpr ErrorNumber kFirstMappingError = kAutomationErrorBase + 1025;

inline constexpr ErrorNumber kXmlFileNotDefined = kFirstMappingError;
inline constexpr ErrorNumber kXmlFileDoesNotExist = kFirstMappingError + 1;
inline constexpr ErrorNumber kXmlFileIncorrect = kFirstMappingError + 2;
inline constexpr ErrorNumber kUseDocumentDoesNotExist = kFirstMappingError + 3;
inline constexpr ErrorNumber kTemplateNotDefined = kFirstMappingError + 4;
inline constexpr ErrorNumber kTemplateFolderDoesNotExist = kFirstMappingError + 5;
inline constexpr ErrorNumber kTemplateAlreadyExists = kFirstMappingError + 6;
/// A mapping that stopped without a message for the user; its text is empty.
inline constexpr ErrorNumber kMappingStopped = kFirstMappingError + 7;
inline constexpr ErrorNumber kLabelDocumentDoesNotExist = kFirstMappingError + 8;
inline constexpr ErrorNumber kLabelDocumentIncorrect = kFirstMappingError + 9;
inline constexpr ErrorNumber kFieldListNotDefined = kFirstMappingError + 10;
inline constexpr ErrorNumber kFieldListIncorrect = kFirstMappingError + 11;
inline constexpr ErrorNumber kFileDoesNotExist = kFirstMappingError + 12;            ///< %1 the file
inline constexpr ErrorNumber kTemplateFormatNotSupported = kFirstMappingError + 13;  ///< %1 the template
inline constexpr ErrorNumber kTemplateAlreadyOpened = kFirstMappingError + 14;       ///< %1 the template

inline constexpr ErrorNumber kLastMappingError = kTemplateAlreadyOpened;

constexpr bool isMappingError(ErrorNumber number) {
    return number >= kFirstMappingError && number <= kLastMappingError;
}

/// Raises the code as an AutomationError with the text of `GetMappingErrorText`.
[[noreturn]] void RaiseMappingError(ErrorNumber code, const std::vector<std::string>& parameters = {});

/// Returns the code's message with "%1", "%2" and so on replaced by the parameters. Raises
/// kSubscriptOutOfRange for a code that is not a mapping error's.
std::string GetMappingErrorText(ErrorNumber code, const std::vector<std::string>& parameters = {});

/// Ends a mapping that cannot be made as it was requested. Its text is a sentence for the user; nothing has
/// been written.
class MappingRefusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Reports an error that reached the entry routine: shows a mapping error by its text, if it has one, and
/// passes any other to the error handler.
void reportEntryError(const AutomationError& error, ErrorHandler& errors, Messages& messages);

}  // namespace mergeloom
