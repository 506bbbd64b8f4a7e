#pragma once

#include "office/com/automation/AutomationObject.h"

#include <exception>
#include <functional>
#include <string>

namespace mergeloom::com {

/// Make a call that reads or saves a file. A refusal is raised as kFileCouldNotBeRead (for a wrong password
/// as model::PasswordRequired) or kFileCouldNotBeSaved, with a sentence that names the file. Errors of an
/// office that is busy, has ended or lacks a member are passed on.
void readingFile(const AutomationSession& session, const std::string& path,
                 const std::function<void()>& call);
void savingFile(const AutomationSession& session, const std::string& path, const std::function<void()>& call);

/// Raises kFileCouldNotBeSaved for a document or workbook for which a save would show a dialog: it has no
/// file yet, or one that must not be changed.
void checkSavable(const AutomationObject& document);

/// Makes a call at the end of an office and ignores its errors: the office has ended before or takes no
/// calls.
template <typename Call>
void ignoringErrors(const Call& call) {
    try {
        call();
    } catch (const std::exception&) {
    }
}

}  // namespace mergeloom::com
