#include "office/com/automation/OfficeErrors.h"

#include "base/AutomationError.h"
#include "office/com/automation/ErrorNumbers.h"
#include "office/model/PasswordRequired.h"

#include <algorithm>
#include <initializer_list>

namespace mergeloom::com {

namespace {

/// Word's error for a password that does not open a document.
constexpr ErrorNumber kWrongPassword = 5408;

bool passesThrough(const AutomationError& error) {
    const auto numbers = {kNotAvailable,         kMemberUnknown,      kTypeMismatch,
                          kNamedArgumentUnknown, kWrongArgumentCount, kArgumentMissing};
    return std::ranges::find(numbers, error.number()) != numbers.end();
}

std::string sentence(const std::string& path, const char* what, const AutomationSession& session,
                     const AutomationError& error) {
    return "The file '" + path + "' could not be " + what + ": " + session.officeName() +
           " says: " + error.description();
}

}  // namespace

void readingFile(const AutomationSession& session, const std::string& path,
                 const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        if (passesThrough(error)) throw;
        if (error.number() == kWrongPassword) throw model::PasswordRequired(path);
        throw AutomationError(kFileCouldNotBeRead, sentence(path, "read", session, error));
    }
}

void savingFile(const AutomationSession& session, const std::string& path,
                const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        if (passesThrough(error)) throw;
        throw AutomationError(kFileCouldNotBeSaved, sentence(path, "saved", session, error));
    }
}

void checkSavable(const AutomationObject& document) {
    if (document.get("Path").text().empty())
        throw AutomationError(kFileCouldNotBeSaved, "The document has no file name yet.");
    if (!document.get("ReadOnly").truth()) return;
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + document.get("FullName").text() +
                                                    "' could not be saved: it is read-only or open in "
                                                    "another program.");
}

}  // namespace mergeloom::com
