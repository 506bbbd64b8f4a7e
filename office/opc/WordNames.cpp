#include "office/opc/WordNames.h"

#include "office/opc/XmlPart.h"

#include <array>
#include <cstring>

namespace mergeloom::opc {

namespace {

constexpr std::string_view kTransitionalNamespace =
    "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr std::string_view kStrictNamespace = "http://purl.oclc.org/ooxml/wordprocessingml/main";

struct TagName {
    const char* name = nullptr;
    WordTag tag = WordTag::Other;
};

constexpr auto kTagNames = std::to_array<TagName>({
    {"p", WordTag::Paragraph},
    {"tbl", WordTag::Table},
    {"tr", WordTag::Row},
    {"tc", WordTag::CellElement},
    {"sectPr", WordTag::SectionProperties},
    {"sdt", WordTag::ContentControl},
    {"sdtContent", WordTag::ContentControlContent},
    {"customXml", WordTag::CustomXml},
    {"smartTag", WordTag::SmartTag},
    {"hyperlink", WordTag::Hyperlink},
    {"ins", WordTag::Insertion},
    {"del", WordTag::Deletion},
    {"moveFrom", WordTag::MoveFrom},
    {"moveTo", WordTag::MoveTo},
    {"dir", WordTag::Direction},
    {"bdo", WordTag::Direction},
    {"r", WordTag::Run},
    {"fldSimple", WordTag::SimpleField},
    {"bookmarkStart", WordTag::BookmarkStart},
    {"bookmarkEnd", WordTag::BookmarkEnd},
    {"pPr", WordTag::ParagraphProperties},
    {"rPr", WordTag::RunProperties},
    {"t", WordTag::TextElement},
    {"delText", WordTag::DeletedText},
    {"instrText", WordTag::InstructionText},
    {"delInstrText", WordTag::DeletedInstructionText},
    {"tab", WordTag::Tab},
    {"br", WordTag::Break},
    {"cr", WordTag::Break},
    {"ptab", WordTag::Tab},
    {"sym", WordTag::SingleCharacter},
    {"noBreakHyphen", WordTag::SingleCharacter},
    {"softHyphen", WordTag::SingleCharacter},
    {"footnoteReference", WordTag::SingleCharacter},
    {"endnoteReference", WordTag::SingleCharacter},
    {"commentReference", WordTag::SingleCharacter},
    {"footnoteRef", WordTag::SingleCharacter},
    {"endnoteRef", WordTag::SingleCharacter},
    {"annotationRef", WordTag::SingleCharacter},
    {"separator", WordTag::SingleCharacter},
    {"continuationSeparator", WordTag::SingleCharacter},
    {"pgNum", WordTag::SingleCharacter},
    {"drawing", WordTag::Drawing},
    {"pict", WordTag::VmlPicture},
    {"object", WordTag::EmbeddedObject},
    {"fldChar", WordTag::FieldCharacter},
    {"ruby", WordTag::Ruby},
    {"txbxContent", WordTag::TextBoxContent},
});

constexpr std::size_t kSlots = 256;

constexpr std::size_t slotOf(const char* name) {
    constexpr int kHashed = 4;
    std::size_t hash = 0;
    for (int i = 0; i < kHashed && name[i] != '\0'; ++i)
        hash = hash * 31 + static_cast<unsigned char>(name[i]);
    return hash % kSlots;
}

/// A hash table with open addressing: every element of a part of many megabytes is looked up.
constexpr auto kTable = [] {
    std::array<TagName, kSlots> table{};
    for (const TagName& entry : kTagNames) {
        std::size_t slot = slotOf(entry.name);
        while (table[slot].name)
            slot = (slot + 1) % kSlots;
        table[slot] = entry;
    }
    return table;
}();

/// The tags of the names of one letter, which most elements have.
constexpr auto kLetterTags = [] {
    std::array<WordTag, 256> tags{};
    for (const TagName& entry : kTagNames) {
        if (entry.name[1] == '\0') tags[static_cast<unsigned char>(entry.name[0])] = entry.tag;
    }
    return tags;
}();

WordTag lookUp(const char* name) {
    if (name[0] != '\0' && name[1] == '\0') return kLetterTags[static_cast<unsigned char>(name[0])];
    for (std::size_t slot = slotOf(name); kTable[slot].name; slot = (slot + 1) % kSlots) {
        if (std::strcmp(kTable[slot].name, name) == 0) return kTable[slot].tag;
    }
    return WordTag::Other;
}

/// Returns the rest of the name after a prefix; none when the name has another one.
const char* afterPrefix(const char* name, const std::string& prefix) {
    for (const char character : prefix) {
        if (*name++ != character) return nullptr;
    }
    return name;
}

WordTag foreignTag(pugi::xml_node node) {
    const std::string_view name = localName(node);
    if (name == "AlternateContent") return WordTag::AlternateContent;
    if (name == "Choice") return WordTag::Choice;
    if (name == "oMath" || name == "oMathPara") return WordTag::Math;
    return WordTag::Other;
}

bool isWordNamespace(std::string_view uri) {
    return uri == kTransitionalNamespace || uri == kStrictNamespace;
}

}  // namespace

WordNames::WordNames(pugi::xml_node root) {
    const std::string_view rootName = root.name();
    const std::size_t colon = rootName.find(':');
    if (colon != std::string_view::npos) elementPrefix_ = rootName.substr(0, colon + 1);
    for (const pugi::xml_attribute attribute : root.attributes()) {
        const std::string_view name = attribute.name();
        if (!isWordNamespace(attribute.value())) continue;
        strict_ = attribute.value() == kStrictNamespace;
        if (name.starts_with("xmlns:")) attributePrefix_ = std::string(name.substr(6)) + ":";
    }
    if (!elementPrefix_.empty()) attributePrefix_ = elementPrefix_;
    if (!attributePrefix_.empty()) return;
    attributePrefix_ = "w:";
    root.append_attribute("xmlns:w") =
        std::string(strict_ ? kStrictNamespace : kTransitionalNamespace).c_str();
}

WordTag WordNames::tagOf(pugi::xml_node node) const {
    // Most elements have the part's own prefix, and their local names have no colon.
    const char* const name = afterPrefix(node.name(), elementPrefix_);
    if (!name) return foreignTag(node);
    const WordTag tag = lookUp(name);
    return tag == WordTag::Other && std::strchr(name, ':') ? foreignTag(node) : tag;
}

const char* WordNames::value(pugi::xml_node node, std::string_view localName) const {
    for (const pugi::xml_attribute attribute : node.attributes()) {
        const std::string_view name = attribute.name();
        if (name.starts_with(attributePrefix_) && name.substr(attributePrefix_.size()) == localName) {
            return attribute.value();
        }
    }
    return "";
}

pugi::xml_node WordNames::child(pugi::xml_node node, WordTag tag) const {
    pugi::xml_node child = node.first_child();
    while (child && tagOf(child) != tag) {
        if (child.type() == pugi::node_element && isOnlyFirst(tag, node)) return {};
        child = child.next_sibling();
    }
    return child;
}

bool WordNames::isOnlyFirst(WordTag properties, pugi::xml_node owner) const {
    if (properties == WordTag::ParagraphProperties) return tagOf(owner) == WordTag::Paragraph;
    return properties == WordTag::RunProperties && tagOf(owner) == WordTag::Run;
}

pugi::xml_node WordNames::ancestor(pugi::xml_node node, WordTag tag) const {
    for (node = node.parent(); node; node = node.parent()) {
        if (tagOf(node) == tag) return node;
    }
    return {};
}

std::string WordNames::join(const std::string& prefix, std::string_view localName) {
    std::string name = prefix;
    name += localName;
    return name;
}

}  // namespace mergeloom::opc
