#pragma once

#include "base/AutomationError.h"

#include <string>
#include <string_view>

/// What the file formats of Word and Excel have in common.
namespace mergeloom {

inline constexpr ErrorNumber kUnknownOfficeDocumentType = 30000;

enum class LeadingDot { Without, With };

/// The longer form of an extension that is written in two ways (without a dot); empty for all others.
std::string secondExtension(std::string_view extension);

/// Whether a file with the extension may have the format whose own extension is the second argument: it is
/// that one or its longer form. Extensions stand without a dot and in the same letter case; the empty one
/// fits no format.
bool fitsFormat(std::string_view extension, std::string_view formatExtension);

/// The extension behind a dot, where one is asked for and there is an extension.
std::string dottedExtension(std::string_view extension, LeadingDot dot);

/// The pattern of a file dialog for the extension, such as "*.htm;*.html".
std::string extensionFilter(std::string_view extension);

}  // namespace mergeloom
