#include "office/embedded/letters/SectionXml.h"

#include "office/opc/PropertyOrder.h"

#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

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
    const pugi::xml_node type = opc::requireChild(section, "type", names);
    const std::string_view side = names.value(type, "val");
    const bool isEven = side == "evenPage";
    if (!isEven && side != "oddPage") set(type, "val", "nextPage", names);
    const pugi::xml_node numbering = opc::requireChild(section, "pgNumType", names);
    const bool hasStart = !std::string_view(names.value(numbering, "start")).empty();
    if (!hasStart) set(numbering, "start", isEven ? "2" : "1", names);
}

}  // namespace mergeloom::embedded
