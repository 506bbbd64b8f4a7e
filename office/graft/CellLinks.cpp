#include "office/graft/CellLinks.h"

#include "office/graft/Refusal.h"
#include "office/model/excel/SheetReference.h"
#include "office/opc/XmlPart.h"

#include <optional>
#include <pugixml.hpp>
#include <set>
#include <string_view>

namespace mergeloom::graft {

namespace {

/// The links of one sheet of the original.
class OwnLinks {
  public:
    OwnLinks(embedded::WorkbookContent& original, std::size_t sheet)
        : part_(original.sheet(sheet).part()),
          relationships_(original.package().relationshipsOf(part_.partName())),
          conformance_(original.package().conformance()),
          sheetName_(original.workbook().sheets()[sheet].name) {
        std::string xml = part_.section("hyperlinks");
        if (xml.empty()) xml = "<" + part_.elementName("hyperlinks") + "/>";
        document_.load_string(xml.c_str(), pugi::parse_full);
    }

    void set(const std::string& area, const CellLink& link) {
        pugi::xml_node node = at(area);
        if (!node) {
            node = list().append_child(part_.elementName("hyperlink").c_str());
            node.append_attribute("ref").set_value(area.c_str());
        }
        releaseTarget(node);
        node.remove_attribute("location");
        node.remove_attribute("display");
        if (!link.address.empty()) {
            const std::string type = opc::officeRelationshipType("hyperlink", conformance_);
            const std::string id = relationships_.addExternal(type, link.address);
            const std::string name = part_.declareNamespace("r", namespaceOfIds()) + ":id";
            node.append_attribute(name.c_str()).set_value(id.c_str());
        }
        if (!link.location.empty()) node.append_attribute("location").set_value(link.location.c_str());
    }
    void remove(const std::string& area) {
        const pugi::xml_node node = at(area);
        if (!node) throw Refusal("LibreOffice reads the links differently from the file", place(area));
        releaseTarget(node);
        list().remove_child(node);
    }
    void store() {
        part_.setSection("hyperlinks", list().first_child() ? opc::packageXmlText(document_) : "");
    }

  private:
    [[nodiscard]] pugi::xml_node list() const { return document_.document_element(); }
    [[nodiscard]] std::string place(const std::string& area) const { return sheetName_ + "!" + area; }
    /// Returns the link of exactly an area; none if there is none.
    [[nodiscard]] pugi::xml_node at(const std::string& area) const {
        const auto wanted = excel::parseArea(area);
        if (!wanted) throw Refusal("a link was changed", place(area));
        for (const pugi::xml_node node : list().children()) {
            const auto found = excel::parseArea(node.attribute("ref").value());
            if (!found) continue;
            if (*found == *wanted) return node;
            if (found->contains(wanted->first))
                throw Refusal("a link of several cells was changed", place(area));
        }
        return {};
    }
    [[nodiscard]] std::string namespaceOfIds() const {
        const std::string type = opc::officeRelationshipType("hyperlink", conformance_);
        return type.substr(0, type.rfind('/'));
    }
    /// Removes the id of its relationship from a link, and the relationship unless another link uses it.
    void releaseTarget(pugi::xml_node node) {
        for (const pugi::xml_attribute attribute : node.attributes()) {
            if (!std::string_view(attribute.name()).ends_with(":id")) continue;
            const std::string name = attribute.name();
            const std::string id = attribute.value();
            node.remove_attribute(attribute);
            const bool isUsed = static_cast<bool>(list().find_child_by_attribute(name.c_str(), id.c_str()));
            if (!isUsed) relationships_.remove(id);
            return;
        }
    }

    embedded::SheetPart& part_;
    opc::Relationships& relationships_;
    opc::Conformance conformance_;
    std::string sheetName_;
    pugi::xml_document document_;
};

}  // namespace

void repeatLinks(embedded::WorkbookContent& original, std::size_t sheet, const CellLinks& former,
                 const CellLinks& now) {
    OwnLinks own(original, sheet);
    for (const auto& [area, link] : former)
        if (!now.contains(area)) own.remove(area);
    for (const auto& [area, link] : now) {
        const auto before = former.find(area);
        if (before == former.end() || before->second != link) own.set(area, link);
    }
    own.store();
}

}  // namespace mergeloom::graft
