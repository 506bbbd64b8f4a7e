#pragma once

#include "base/ErrorHandler.h"

#include <string>
#include <vector>

namespace mergeloom {

/// What is known of the program and the system when an error occurs.
struct ProblemCircumstances {
    std::string time;            ///< UTC, as ISO 8601 writes it
    std::string programVersion;  ///< with the program's name
    std::string qtVersion;
    std::string officeBuild;  ///< empty while no office runs
    std::string system;
    std::string locale;
    std::vector<std::string> homeFolders;  ///< the names of the user's home folder
};

/// What this program can tell of itself and the system now, but for the office.
ProblemCircumstances currentCircumstances();

/// The report that a user can read, keep and send. It holds no content of documents, and the user's home
/// folder reads "~". A line for each fact, "Name: value", in this order: Time, Program, Qt, Office, System,
/// Locale, Error number, Description, Module, Procedure, Place, Comment. What is not known reads "unknown";
/// without a comment there is no line for it. A value of several lines goes on in lines that start with two
/// blanks.
std::string problemReportText(const ErrorReport& error, const ProblemCircumstances& circumstances);

/// An error's number as it is known: small ones as they are, those of automation hexadecimal.
std::string shownErrorNumber(ErrorNumber number);

/// Keeps a report as a new text file in a folder, which is made where it is missing, and gives its path. Of
/// earlier reports only the newest stay. Raises kFileCouldNotBeSaved.
std::string saveProblemReport(const std::string& text, const std::string& folder);

/// The address that this build writes reports to; empty for none.
std::string builtInSupportAddress();
/// The mailto: link (RFC 6068) that begins a mail with the report.
std::string problemMailLink(const std::string& address, const std::string& text);

}  // namespace mergeloom
