#pragma once

#include "base/AutomationError.h"
#include "office/formats/FormatTable.h"

#include <span>
#include <string>
#include <string_view>

/// Lookups in the table of formats by number and by extension, for Word and Excel. Extensions are without a
/// dot and in lower case.
namespace mergeloom {

inline constexpr ErrorNumber kUnknownOfficeDocumentType = 30000;

enum class LeadingDot { Without, With };

/// Returns the longer form of an extension that is written in two ways; empty for all others.
std::string secondExtension(std::string_view extension);

/// Returns true when a file with the extension may have the format whose own extension is the second
/// argument: it is that one or its longer form. The empty extension fits no format.
bool fitsFormat(std::string_view extension, std::string_view formatExtension);

/// Returns the extension, after a dot if requested and not empty.
std::string dottedExtension(std::string_view extension, LeadingDot dot);

/// Returns the pattern of a file dialog for the extension, such as "*.htm;*.html".
std::string extensionFilter(std::string_view extension);

/// Returns the name that dialogs show for the format; empty for an unknown number.
std::string formatName(DocumentFamily family, int format);

/// Returns the extension of the format; empty when it has none or is unknown.
std::string formatExtension(DocumentFamily family, int format, LeadingDot dot = LeadingDot::Without);

/// Raises kUnknownOfficeDocumentType for a number that is no format's.
OfficeDocumentType officeDocumentType(DocumentFamily family, int format);

/// Returns the formats that dialogs offer, in their order there.
std::span<const FileFormat> offeredFormats(DocumentFamily family);

/// Returns the first offered format with the extension, or null.
const FileFormat* findOfferedFormat(DocumentFamily family, std::string_view extension);

}  // namespace mergeloom
