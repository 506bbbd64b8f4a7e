#include "app/MappingSource.h"

#include "xml/CXML2TreeView.h"
#include "xml/modMSXMLHelper.h"

#include <utility>

namespace mergeloom {

namespace {

bool isBelow(XmlNode node, XmlNode ancestor) {
    while (node && node != ancestor)
        node = node.parentNode();
    return static_cast<bool>(node);
}

/// Returns the names joined by commas, and after them the number of controls without one.
std::string namesOf(const std::vector<XmlNode>& controls) {
    std::string names;
    int nameless = 0;
    for (const XmlNode& control : controls) {
        const std::string name = GetAttributeValue(control, Attribute::Name);
        if (name.empty()) {
            ++nameless;
        } else {
            names += (names.empty() ? "\"" : ", \"") + name + '"';
        }
    }
    if (nameless == 0) return names;
    const std::string rest =
        std::to_string(nameless) + (nameless == 1 ? " control" : " controls") + " without a name";
    return names.empty() ? rest : names + " and " + rest;
}

}  // namespace

MappingSource::MappingSource(const std::string& path, ErrorHandler& errors, Messages& messages) {
    if (!document_.Load(path)) {
        messages.show({document_.parseError().reason, MessageIcon::None, MessageButtons::Ok});
        return;
    }
    showTree(errors);
}

MappingSource::MappingSource(const std::string& path, ErrorHandler& errors, const RecordHandler& records) {
    if (document_.Load(path, records)) showTree(errors);
}

void MappingSource::showTree(ErrorHandler& errors) {
    CXML2TreeView view{tree_, document_, errors, DropKindNodes::LeftOut};
    view.DisplayXMLNode(0, document_.documentElement(), false);
    xmlNodes_ = std::move(view.XMLNodes());
    leftOut_ = view.leftOut();
}

std::string leftOutControls(const MappingSource& source, const TreeNode& object) {
    const XmlNode element = source.xmlNodes().Item(object.Key());
    std::vector<XmlNode> controls = source.leftOut();
    std::erase_if(controls, [&](const XmlNode& control) { return !isBelow(control, element); });
    if (controls.empty()) return {};
    return "Left out of " + object.Text() + " for want of a caption: " + namesOf(controls) + ".";
}

}  // namespace mergeloom
