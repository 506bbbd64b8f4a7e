#pragma once

#include <rtl/ustring.hxx>
#include <string>
#include <string_view>

namespace mergeloom::libreoffice {

using rtl::OUString;

/// Returns UNO's text for UTF-8.
OUString toUno(std::string_view text);
/// Returns UTF-8 for UNO's text.
std::string fromUno(const OUString& text);

/// Returns the URL of an absolute path, byte for byte and independent of the locale.
std::string fileUrl(const std::string& path);

}  // namespace mergeloom::libreoffice
