#include "office/graft/BookExport.h"

#include "office/graft/BookRules.h"
#include "office/opc/PartName.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mergeloom::graft {

namespace {

constexpr std::array<std::string_view, 4> kReadApart{"sheets", "definedNames", "bookViews", "fileVersion"};
constexpr std::array<std::string_view, 4> kOwnTypes{"theme", "vbaProject", "connections", "xmlMaps"};

}  // namespace

BookExport::BookExport(const std::string& bytes, const std::string& fileName, FormatNumbers& numbers)
    : package_(opc::Package::read(bytes, fileName)), formats_(package_, numbers), texts_(package_, numbers) {
    const std::string name = package_.mainPart();
    const auto part = opc::XmlPart::parse(package_.readPart(name), name, fileName);
    readSheets(part->root().child("sheets"));
    readNames(part->root().child("definedNames"));
    readSections(part->root(), name);
}

void BookExport::readSheets(pugi::xml_node list) {
    const std::string book = package_.mainPart();
    for (const pugi::xml_node node : list.children("sheet")) {
        const opc::Relationships& relationships = package_.relationshipsOf(book);
        const opc::Relationship* const found = relationships.find(node.attribute("r:id").value());
        if (found == nullptr) continue;
        sheets_.emplace_back(node.attribute("name").value(), package_, relationships.targetPart(*found),
                             texts_, formats_);
        sheets_.back().sections["state"] = node.attribute("state").value();
    }
}

void BookExport::readNames(pugi::xml_node list) {
    for (const pugi::xml_node node : list.children("definedName")) {
        const auto sheet = node.attribute("localSheetId").as_uint();
        const bool isLocal = node.attribute("localSheetId") && sheet < sheets_.size();
        names_[{isLocal ? sheets_[sheet].name() : "", node.attribute("name").value()}] = node.child_value();
    }
}

void BookExport::readSections(pugi::xml_node root, const std::string& partName) {
    const CanonicalXml canonical(bookRules(), contentsOf(package_, partName, bookRules()));
    for (const pugi::xml_node child : root.children())
        if (std::ranges::find(kReadApart, std::string_view(child.name())) == kReadApart.end())
            sections_[child.name()] += canonical.of(child);
    const opc::Relationships& relationships = package_.relationshipsOf(partName);
    for (const opc::Relationship& relationship : std::vector(relationships.all())) {
        const std::string type = sectionOfType(relationship.type);
        if (std::ranges::find(kOwnTypes, type) != kOwnTypes.end())
            sections_[type] += contentOf(package_, relationships.targetPart(relationship), bookRules());
    }
    for (const char* name : {"/docProps/core.xml", "/docProps/custom.xml"})
        sections_[name] = contentOf(package_, name, bookRules());
}

}  // namespace mergeloom::graft
