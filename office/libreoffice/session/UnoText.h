#pragma once

#include <rtl/ustring.hxx>
#include <string>
#include <string_view>

namespace mergeloom::libreoffice {

using rtl::OUString;

/// UNO's text of UTF-8.
OUString toUno(std::string_view text);
/// UTF-8 of UNO's text.
std::string fromUno(const OUString& text);

}  // namespace mergeloom::libreoffice
