#include "office/embedded/sheet/StyleSheet.h"

#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

namespace {

constexpr double kMaxFontSize = 409;  // the largest that Excel accepts

using Fonts = std::vector<CellFont>;

const char* valueOf(pugi::xml_node parent, const char* child) {
    return childNamed(parent, child).attribute("val").value();
}

/// Returns a switch such as <b/>, which is on if it has no value.
bool isOn(pugi::xml_node parent, const char* child) {
    const pugi::xml_node found = childNamed(parent, child);
    return found && found.attribute("val").as_bool(true);
}

CellFont readFont(pugi::xml_node node) {
    CellFont font;
    const std::string name = valueOf(node, "name");
    if (!name.empty()) font.name = name;
    const double size = childNamed(node, "sz").attribute("val").as_double();
    if (size > 0 && size <= kMaxFontSize) font.size = size;
    font.bold = isOn(node, "b");
    font.italic = isOn(node, "i");
    return font;
}

/// Returns the children of that name in a list such as <fonts>.
std::vector<pugi::xml_node> itemsOf(pugi::xml_node root, const char* list, const char* item) {
    return childrenNamed(childNamed(root, list), item);
}

Fonts readFonts(pugi::xml_node root) {
    Fonts fonts;
    for (const pugi::xml_node node : itemsOf(root, "fonts", "font"))
        fonts.push_back(readFont(node));
    return fonts;
}

/// Returns the font of a format. If the format does not name an existing font, that is the first font, or the
/// default if there are no fonts.
CellFont fontOfFormat(pugi::xml_node format, const Fonts& fonts) {
    const std::size_t index = format.attribute("fontId").as_uint();
    if (index < fonts.size()) return fonts[index];
    return fonts.empty() ? CellFont() : fonts.front();
}

/// Returns the format of the style "Normal", which is identified by its number, since its name may be
/// translated.
pugi::xml_node normalFormat(pugi::xml_node root) {
    const pugi::xml_node styles = childNamed(root, "cellStyles");
    const pugi::xml_node normal =
        styles.find_child_by_attribute(qualifiedName(root, "cellStyle").c_str(), "builtinId", "0");
    const std::vector<pugi::xml_node> formats = itemsOf(root, "cellStyleXfs", "xf");
    const std::size_t index = normal.attribute("xfId").as_uint();
    return normal && index < formats.size() ? formats[index] : pugi::xml_node();
}

bool alignmentSkipsAutoFit(pugi::xml_node format) {
    const pugi::xml_node alignment = childNamed(format, "alignment");
    return alignment.attribute("wrapText").as_bool() || alignment.attribute("shrinkToFit").as_bool() ||
           alignment.attribute("textRotation").as_int() != 0;
}

}  // namespace

StyleSheet::StyleSheet(std::string_view xml, const std::string& partName, const std::string& fileName) {
    pugi::xml_document document;
    opc::parsePackageXml(document, xml, "styleSheet", partName, fileName);
    const pugi::xml_node root = document.document_element();
    const Fonts fonts = readFonts(root);
    defaultFont_ = fontOfFormat(normalFormat(root), fonts);
    for (const pugi::xml_node node : itemsOf(root, "cellXfs", "xf")) {
        const bool locked = childNamed(node, "protection").attribute("locked").as_bool(true);
        formats_.push_back({fontOfFormat(node, fonts), locked, alignmentSkipsAutoFit(node)});
    }
}

const StyleSheet::CellFormat* StyleSheet::formatOf(int style) const {
    const bool known = style >= 0 && static_cast<std::size_t>(style) < formats_.size();
    return known ? &formats_[static_cast<std::size_t>(style)] : nullptr;
}

const CellFont& StyleSheet::fontOf(int style) const {
    const CellFormat* const format = formatOf(style);
    return format == nullptr ? defaultFont_ : format->font;
}

bool StyleSheet::isLocked(int style) const {
    const CellFormat* const format = formatOf(style);
    return format == nullptr || format->locked;
}

bool StyleSheet::skipsAutoFit(int style) const {
    const CellFormat* const format = formatOf(style);
    return format != nullptr && format->skipsAutoFit;
}

}  // namespace mergeloom::embedded
