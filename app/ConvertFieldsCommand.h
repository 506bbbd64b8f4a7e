#pragma once

#include "app/ConvertMailMergeFields.h"
#include "app/OfficeFormats.h"
#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "base/FileStore.h"

#include <ostream>
#include <string>

namespace mergeloom {

/// Converts the old merge fields of a document file without a user and reports the result.
///
/// Makes a backup of a file before it replaces it, be it the document itself or an existing output. Does not
/// write a document in place if it has no such fields.
class ConvertFieldsCommand {
  public:
    /// The formats are those of the office that is started. All arguments have to outlive it.
    ConvertFieldsCommand(WordStarter startWord, const OfficeFormats& formats, FileStore& files,
                         ErrorHandler& errors)
        : startWord_(std::move(startWord)), formats_(formats), files_(files), errors_(errors) {}

    /// Works in place when the output is empty or the file itself; otherwise the output's extension decides
    /// the format. Returns false when an error was reported or the document protects a field, though what
    /// could be converted is saved. Raises an AutomationError with a sentence for the user, and leaves all
    /// files as they were, when nothing can be read or written.
    bool run(const std::string& file, const std::string& output, std::ostream& report);

  private:
    ConversionResult convert(const word::DocumentPtr& document);
    void checkTarget(const std::string& target, bool isInPlace);
    void checkFormat(const std::string& target) const;
    void checkSource(const std::string& source) const;

    WordStarter startWord_;
    const OfficeFormats& formats_;
    FileStore& files_;
    ErrorHandler& errors_;
};

}  // namespace mergeloom
