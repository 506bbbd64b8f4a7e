#include "office/embedded/sheet/SheetSection.h"

#include <sstream>

namespace mergeloom::embedded {

SheetSection::SheetSection(const SheetPart& sheet, std::string_view localName) {
    const std::string xml = sheet.section(localName);
    constexpr unsigned kParseFlags = pugi::parse_full | pugi::parse_ws_pcdata;
    tree_.load_buffer(xml.data(), xml.size(), kParseFlags, pugi::encoding_utf8);
}

std::string SheetSection::toXml() const {
    std::ostringstream xml;
    root().print(xml, "", pugi::format_raw, pugi::encoding_utf8);
    return xml.str();
}

}  // namespace mergeloom::embedded
