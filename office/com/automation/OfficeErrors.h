#pragma once

#include "office/com/automation/AutomationObject.h"

#include <exception>
#include <functional>
#include <string>

namespace mergeloom::com {

/// Call an office with a file. What it refuses becomes kFileCouldNotBeRead (a wrong password
/// model::PasswordRequired) or kFileCouldNotBeSaved, with a sentence that names the file. Errors of an office
/// that is busy, has ended or lacks a member pass through.
void readingFile(const AutomationSession& session, const std::string& path,
                 const std::function<void()>& call);
void savingFile(const AutomationSession& session, const std::string& path, const std::function<void()>& call);

/// Raises kFileCouldNotBeSaved for a document or workbook for which a save would show a dialog: it has no
/// file yet, or one that must not be changed.
void checkSavable(const AutomationObject& document);

/// Calls an office at its end, where nothing else can be done about an error: it has ended before or takes no
/// calls.
template <typename Call>
void ignoringErrors(const Call& call) {
    try {
        call();
    } catch (const std::exception&) {
    }
}

}  // namespace mergeloom::com
