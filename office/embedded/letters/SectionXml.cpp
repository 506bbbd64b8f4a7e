#include "office/embedded/letters/SectionXml.h"

#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

/// The children of a section's properties in the order of the schema (ECMA-376 Part 1, 17.6.17).
constexpr std::array<std::string_view, 21> kSectionOrder = {
    "headerReference", "footerReference", "footnotePr",     "endnotePr", "type",          "pgSz",
    "pgMar",           "paperSrc",        "pgBorders",      "lnNumType", "pgNumType",     "cols",
    "formProt",        "vAlign",          "noEndnote",      "titlePg",   "textDirection", "bidi",
    "rtlGutter",       "docGrid",         "printerSettings"};

std::ptrdiff_t sectionRank(std::string_view name) {
    return std::distance(kSectionOrder.begin(), std::ranges::find(kSectionOrder, name));
}

pugi::xml_node propertyOf(pugi::xml_node section, std::string_view name, const opc::WordNames& names) {
    const std::string qualified = names.element(name);
    if (const pugi::xml_node there = section.child(qualified.c_str())) return there;
    for (const pugi::xml_node child : section.children()) {
        if (sectionRank(opc::localName(child)) > sectionRank(name)) {
            return section.insert_child_before(qualified.c_str(), child);
        }
    }
    return section.append_child(qualified.c_str());
}

void set(pugi::xml_node property, std::string_view attribute, const char* value,
         const opc::WordNames& names) {
    const std::string name = names.attribute(attribute);
    pugi::xml_attribute there = property.attribute(name.c_str());
    if (!there) there = property.append_attribute(name.c_str());
    there.set_value(value);
}

}  // namespace

pugi::xml_node firstSectionOf(pugi::xml_node body, const opc::WordNames& names) {
    return body.find_node(
        [&](pugi::xml_node node) { return names.tagOf(node) == opc::WordTag::SectionProperties; });
}

void startOnNewPage(pugi::xml_node section, const opc::WordNames& names) {
    const pugi::xml_node type = propertyOf(section, "type", names);
    const std::string_view side = names.value(type, "val");
    const bool isEven = side == "evenPage";
    if (!isEven && side != "oddPage") set(type, "val", "nextPage", names);
    const pugi::xml_node numbering = propertyOf(section, "pgNumType", names);
    const bool hasStart = !std::string_view(names.value(numbering, "start")).empty();
    if (!hasStart) set(numbering, "start", isEven ? "2" : "1", names);
}

}  // namespace mergeloom::embedded
