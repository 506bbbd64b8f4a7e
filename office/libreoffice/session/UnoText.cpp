#include "office/libreoffice/session/UnoText.h"

namespace mergeloom::libreoffice {

OUString toUno(std::string_view text) {
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

std::string fromUno(const OUString& text) {
    const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

}  // namespace mergeloom::libreoffice
