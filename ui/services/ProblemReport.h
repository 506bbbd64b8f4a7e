#pragma once

#include "base/ErrorHandler.h"

#include <string>

namespace mergeloom {

/// What is known of the program and the system when an error occurs.
struct ProblemCircumstances {
    std::string time;            ///< UTC, as ISO 8601 writes it
    std::string programVersion;  ///< with the program's name
    std::string qtVersion;
    std::string officeBuild;  ///< empty while no office runs
    std::string system;
    std::string locale;
};

/// What this program can tell of itself and the system now, but for the office.
ProblemCircumstances currentCircumstances();

/// The report that a user can read, keep and send. It holds no content of documents, and the user's home
/// folder reads "~". A line for each fact, "Name: value", in this order: Time, Program, Qt, Office, System,
/// Locale, Error number, Description, Module, Procedure, Comment. What is not known reads "unknown"; an empty
/// comment has no line. A line break in a value goes on in a line that starts with two blanks.
std::string problemReportText(const ErrorReport& error, const ProblemCircumstances& circumstances);

/// The path of the new text file in the user's state folder that keeps the report. Of earlier ones only the
/// newest stay. Raises kFileCouldNotBeSaved.
std::string saveProblemReport(const std::string& text, const std::string& folder);

/// The mailto: link that writes the report to an address, percent-encoded.
std::string problemMailLink(const std::string& address, const std::string& text);

}  // namespace mergeloom
