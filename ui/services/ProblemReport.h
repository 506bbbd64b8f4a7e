#pragma once

#include "base/ErrorHandler.h"

#include <string>
#include <vector>

namespace mergeloom {

/// The facts about the program and the system when an error occurs.
struct ProblemCircumstances {
    std::string time;            ///< UTC, as ISO 8601 writes it
    std::string programVersion;  ///< with the program's name
    std::string qtVersion;
    std::string officeBuild;  ///< empty while no office runs
    std::string system;
    std::string locale;
    std::vector<std::string> homeFolders;  ///< the names of the user's home folder
};

/// Returns the facts about this program and the system now, except for the office.
ProblemCircumstances currentCircumstances();

/// Returns the report that a user can read, keep and send. It has no content of documents, and the user's
/// home folder is written as "~". A line for each fact, "Name: value", in this order: Time, Program, Qt,
/// Office, System, Locale, Error number, Description, Module, Procedure, Place, Comment. An unknown value is
/// "unknown"; without a comment there is no line for it. A value of several lines continues in lines that
/// start with two blanks.
std::string problemReportText(const ErrorReport& error, const ProblemCircumstances& circumstances);

/// Returns an error's number as it is commonly written: small ones in decimal, those of automation in
/// hexadecimal digits.
std::string shownErrorNumber(ErrorNumber number);

/// Saves a report as a new text file in a folder, which is made when it is missing, and returns its path. Of
/// earlier reports only the newest are kept. Raises kFileCouldNotBeSaved.
std::string saveProblemReport(const std::string& text, const std::string& folder);

/// Returns the address to which this build sends reports; empty for none.
std::string builtInSupportAddress();
/// Returns the mailto: link (RFC 6068) that begins a mail with the report.
std::string problemMailLink(const std::string& address, const std::string& text);

}  // namespace mergeloom
