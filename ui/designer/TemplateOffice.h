#pragma once

#include "office/formats/OfferedFormats.h"
#include "office/model/OfficeDocument.h"

#include <string>
#include <vector>

namespace mergeloom {

/// The texts in which Word's templates and Excel's differ.
struct TemplateTexts {
    const char* officeName;
    const char* newCaption;
    const char* typeName;  ///< of the files that are opened
    const char* wrongFile;
    /// The names under which errors are reported.
    const char* openProcedure;
    const char* saveProcedure;
    const char* keptExtension;  ///< of the office's own format, in which copies are kept
};

/// The uses of a format. An office writes fewer formats than it reads.
enum class FormatUse { Open, Save };

/// Opens and saves templates in one kind of office, inside the window. Errors of the host pass through.
class TemplateOffice {
  public:
    TemplateOffice() = default;
    TemplateOffice(const TemplateOffice&) = delete;
    TemplateOffice& operator=(const TemplateOffice&) = delete;
    virtual ~TemplateOffice() = default;

    [[nodiscard]] virtual const TemplateTexts& texts() const = 0;

    /// Shows a new, empty template; returns false, after a message, when the office has none.
    virtual bool createNew() = 0;
    /// Returns the file that is opened for a path: the path itself, or the file to which it was converted.
    /// Raises kTemplateFormatNotSupported.
    virtual std::string fileToOpen(const std::string& path) = 0;
    /// Sets up the view of a document that was just shown for making templates.
    virtual void setUpView() = 0;
    /// Restores the view; does nothing when it was not changed.
    virtual void restoreView() = 0;

    /// Returns the hosted document when it is one of this office, or none.
    virtual model::OfficeDocument* document() = 0;
    /// Returns the formats of templates, then those of documents that keep the places, both in the order of
    /// dialogs.
    virtual std::vector<OfferedFormat> templateFormats(FormatUse use) = 0;
    [[nodiscard]] virtual const char* defaultExtension() const = 0;
    [[nodiscard]] virtual bool knowsExtensionOf(const std::string& path) const = 0;
    /// Returns true if the format of the path's extension keeps the named places. A file in another format is
    /// no template any more.
    [[nodiscard]] virtual bool keepsPlaces(const std::string& path) const = 0;
    /// Returns true if the hosted document has a password, and files with the path's extension have none.
    [[nodiscard]] virtual bool losesPassword(const std::string& path) = 0;
    /// Saves the hosted document in the format of the path's extension.
    virtual void saveAs(const std::string& path) = 0;
    /// Writes a copy of the hosted document in the format of the path's extension. The document stays as it
    /// is.
    virtual void exportCopy(const std::string& path) = 0;
};

}  // namespace mergeloom
