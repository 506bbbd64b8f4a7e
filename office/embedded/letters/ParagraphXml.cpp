#include "office/embedded/letters/ParagraphXml.h"

#include <string_view>

namespace mergeloom::embedded {

namespace {

using opc::WordTag;

bool belongsToOneParagraph(std::string_view name) {
    for (const std::string_view own : {"sectPr", "pageBreakBefore", "pPrChange"}) {
        if (name == own) return true;
    }
    return false;
}

/// Returns true for a tracked change of a paragraph mark, which has an id of its own.
bool isChangeOfMark(std::string_view name) {
    for (const std::string_view change : {"ins", "del", "moveFrom", "moveTo", "rPrChange"}) {
        if (name == change) return true;
    }
    return false;
}

template <typename Predicate>
void removeChildren(pugi::xml_node node, Predicate isRemoved) {
    for (pugi::xml_node child = node.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        const bool isText = child.type() != pugi::node_element;
        if (isText || isRemoved(opc::localName(child))) node.remove_child(child);
        child = next;
    }
}

/// Returns the properties of a paragraph, which are added if there are none.
pugi::xml_node propertiesOf(pugi::xml_node paragraph, const opc::WordNames& names) {
    const pugi::xml_node there = names.child(paragraph, WordTag::ParagraphProperties);
    return there ? there : paragraph.prepend_child(names.element("pPr").c_str());
}

void moveSection(pugi::xml_node section, pugi::xml_node paragraph, const opc::WordNames& names) {
    pugi::xml_node properties = propertiesOf(paragraph, names);
    const pugi::xml_node change = properties.child(names.element("pPrChange").c_str());
    if (change) {
        properties.insert_move_before(section, change);
    } else {
        properties.append_move(section);
    }
}

}  // namespace

std::string addedParagraphProperties(pugi::xml_node properties, const opc::WordNames& names) {
    pugi::xml_document document;
    const pugi::xml_node copy = document.append_copy(properties);
    removeChildren(copy, belongsToOneParagraph);
    removeChildren(names.child(copy, WordTag::RunProperties), isChangeOfMark);
    if (!copy.first_child()) return {};
    std::string xml;
    opc::StringWriter writer(xml);
    copy.print(writer, "", pugi::format_raw | pugi::format_no_declaration);
    return xml;
}

void joinParagraphs(opc::XmlPart& part, pugi::xml_node first, pugi::xml_node last) {
    if (first == last || first.parent() != last.parent()) return;
    const opc::WordNames names(part.root());
    const pugi::xml_node section =
        names.child(names.child(last, WordTag::ParagraphProperties), WordTag::SectionProperties);
    if (section) moveSection(section, first, names);
    for (bool isLast = false; !isLast;) {
        pugi::xml_node next = first.next_sibling();
        isLast = next == last;
        if (names.tagOf(next) != WordTag::Paragraph) {
            first.append_move(next);
            continue;
        }
        next.remove_child(names.child(next, WordTag::ParagraphProperties));
        while (next.first_child())
            first.append_move(next.first_child());
        part.detach(next);
    }
}

}  // namespace mergeloom::embedded
