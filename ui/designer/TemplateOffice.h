#pragma once

#include "office/formats/OfferedFormats.h"
#include "office/model/OfficeDocument.h"

#include <string>
#include <vector>

namespace mergeloom {

/// The words in which Word's templates and Excel's differ.
struct TemplateTexts {
    const char* officeName;
    const char* newCaption;
    const char* typeName;  ///< of the files that are opened
    const char* wrongFile;
    /// The names under which errors are reported.
    const char* openProcedure;
    const char* saveProcedure;
};

/// What a format is offered for. An office writes fewer than it reads.
enum class FormatUse { Open, Save };

/// What opening and saving templates is in one kind of office, inside the window. Members raise what the host
/// raises.
class TemplateOffice {
  public:
    TemplateOffice() = default;
    TemplateOffice(const TemplateOffice&) = delete;
    TemplateOffice& operator=(const TemplateOffice&) = delete;
    virtual ~TemplateOffice() = default;

    [[nodiscard]] virtual const TemplateTexts& texts() const = 0;

    /// Shows a new, empty template; false when the office knows none, which the user is told.
    virtual bool createNew() = 0;
    /// The file that is opened for a path: the path itself, or what it was converted to. Raises
    /// kTemplateFormatNotSupported.
    virtual std::string fileToOpen(const std::string& path) = 0;
    /// Brings the view of a document that was just shown into the state in which templates are made.
    virtual void setUpView() = 0;
    /// Gives the view what it was before; does nothing where nothing was changed.
    virtual void restoreView() = 0;

    /// The hosted document when it is one of this office, or none.
    virtual model::OfficeDocument* document() = 0;
    /// The formats of templates, in the order of dialogs.
    virtual std::vector<OfferedFormat> templateFormats(FormatUse use) = 0;
    [[nodiscard]] virtual const char* defaultExtension() const = 0;
    [[nodiscard]] virtual bool knowsExtensionOf(const std::string& path) const = 0;
    /// Saves the hosted document in the format of the path's extension.
    virtual void saveAs(const std::string& path) = 0;
};

}  // namespace mergeloom
