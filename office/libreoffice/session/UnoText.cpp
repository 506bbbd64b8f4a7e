#include "office/libreoffice/session/UnoText.h"

#include "office/opc/PartName.h"

namespace mergeloom::libreoffice {

OUString toUno(std::string_view text) {
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

std::string fromUno(const OUString& text) {
    const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

std::string fileUrl(const std::string& path) {
    return "file://" + opc::percentEncoded(path, "/-._~");
}

}  // namespace mergeloom::libreoffice
