#include "base/AutomationError.h"
#include "office/embedded/letters/PartPreparation.h"
#include "office/embedded/letters/SectionXml.h"
#include "office/embedded/letters/Token.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Inserts the tokens around sections for a document of all records.
namespace mergeloom::embedded {

using opc::WordTag;

namespace {

/// Returns true if a paragraph contains optional text, which may remove its end.
bool hasOptionalText(pugi::xml_node node) {
    const std::string start = std::string(kAnyToken) + static_cast<char>(TokenKind::OptionalStart);
    if (std::string_view(node.value()).find(start) != std::string_view::npos) return true;
    return std::ranges::any_of(node.children(), hasOptionalText);
}

/// Collects the headers and footers that sections below a node refer to, by their elements and types.
void collectHeaders(pugi::xml_node below, const opc::WordNames& names, std::set<std::string>& found) {
    for (const pugi::xml_node child : below.children()) {
        const std::string name(opc::localName(child));
        if (name == "headerReference" || name == "footerReference")
            found.insert(name + " " + std::string(names.value(child, "type")));
        collectHeaders(child, names, found);
    }
}

}  // namespace

/// Refuses a first section that lacks a header or footer which a later section has: it would show that of the
/// previous record.
void PartPreparation::checkFirstHeaders(pugi::xml_node firstSection, pugi::xml_node body) const {
    std::set<std::string> first;
    std::set<std::string> all;
    collectHeaders(firstSection, names_, first);
    collectHeaders(body, names_, all);
    if (first.size() == all.size()) return;
    throw AutomationError(
        kNotAvailable,
        "The records cannot be put into one document: the first section of the template has no "
        "header or footer of a kind that a later section has. Give it an empty one.");
}

void PartPreparation::markSections() {
    if (kind_ == PartKind::Body) markBodySections();
    if (kind_ == PartKind::Notes || kind_ == PartKind::Comments) markNotes();
}

void PartPreparation::markNotes() {
    std::vector<pugi::xml_node> notes;
    for (const pugi::xml_node note : part_.root().children()) {
        // Separators between text and notes are stored as notes, too.
        const std::string_view type = names_.value(note, "type");
        const bool isNote = note.type() == pugi::node_element && (type.empty() || type == "normal");
        if (isNote) notes.push_back(note);
    }
    if (notes.empty()) return;
    for (const pugi::xml_node note : notes)
        markId(note.attribute(names_.attribute("id").c_str()), TokenKind::NoteId);
    insertBefore(notes.front(), {TokenKind::SectionStart, 0});
    insertAfter(notes.back(), {TokenKind::SectionEnd, 0});
}

void PartPreparation::markNoteIds(pugi::xml_node below) {
    for (const pugi::xml_node child : below.children()) {
        const std::string_view name = opc::localName(child);
        const bool isReference = name == "footnoteReference" || name == "endnoteReference";
        if (isReference) markId(child.attribute(names_.attribute("id").c_str()), TokenKind::NoteId);
        markNoteIds(child);
    }
}

void PartPreparation::markPartLinks(pugi::xml_node below) {
    for (const pugi::xml_node child : below.children()) {
        const std::string_view name = opc::localName(child);
        const bool isReference = name == "headerReference" || name == "footerReference";
        if (isReference) {
            const pugi::xml_attribute id = child.find_attribute([](pugi::xml_attribute attribute) {
                return std::string_view(attribute.name()).ends_with(":id");
            });
            if (context_.linkedParts.contains(id.value())) markId(id, TokenKind::PartLink);
        }
        markPartLinks(child);
    }
}

void PartPreparation::markBodySections() {
    const pugi::xml_node body = part_.root().child(names_.element("body").c_str());
    pugi::xml_node section = body.child(names_.element("sectPr").c_str());
    if (!section) section = pugi::xml_node(body).append_child(names_.element("sectPr").c_str());
    checkFirstHeaders(firstSectionOf(body, names_), body);
    startOnNewPage(firstSectionOf(body, names_), names_);
    markNoteIds(body);
    markPartLinks(body);
    if (context_.settings.marks == letters::RecordMarks::Bookmarks) markRecord(body);
    pugi::xml_node(body)
        .prepend_child(pugi::node_pcdata)
        .set_value(Token{TokenKind::SectionStart, 0}.text().c_str());
    insertBefore(section, {TokenKind::SectionEnd, 0});
    markSectionBreak(body, section);
}

/// Marks the start of a record, in its first paragraph.
void PartPreparation::markRecord(pugi::xml_node body) {
    pugi::xml_node paragraph =
        body.find_node([&](pugi::xml_node node) { return names_.tagOf(node) == WordTag::Paragraph; });
    context_.needsOwnDocument = !paragraph || names_.ancestor(paragraph, WordTag::Table);
    if (context_.needsOwnDocument) return;
    const pugi::xml_node properties = names_.child(paragraph, WordTag::ParagraphProperties);
    pugi::xml_node text = properties ? paragraph.insert_child_after(pugi::node_pcdata, properties)
                                     : paragraph.prepend_child(pugi::node_pcdata);
    text.set_value(Token{TokenKind::RecordMark, 0}.text().c_str());
}

/// Marks the last paragraph of a record as the end of its section. Appends an empty paragraph if the record
/// does not end with one, or if an empty value may remove it.
void PartPreparation::markSectionBreak(pugi::xml_node body, pugi::xml_node section) {
    sectionBreak_ = xmlOf(section);
    const std::string propertiesName = names_.element("pPr");
    const Token token{TokenKind::SectionBreak, 0};
    pugi::xml_node last = body.last_child();
    while (last && (last.type() != pugi::node_element || last == section))
        last = last.previous_sibling();
    const bool isParagraph = names_.tagOf(last) == WordTag::Paragraph && !hasOptionalText(last) &&
                             !hasOptionalText(last.previous_sibling());
    pugi::xml_node properties = names_.child(last, WordTag::ParagraphProperties);
    if (!isParagraph || properties.child(names_.element("sectPr").c_str())) {
        const std::string paragraph = names_.element("p");
        sectionBreak_ = "<" + paragraph + "><" + propertiesName + ">" + sectionBreak_ + "</" +
                        propertiesName + "></" + paragraph + ">";
        insertAfter(last, token);
        context_.needsOwnDocument = true;
        return;
    }
    if (!properties) properties = last.prepend_child(propertiesName.c_str());
    const pugi::xml_node change = properties.child(names_.element("pPrChange").c_str());
    pugi::xml_node text = change ? properties.insert_child_before(pugi::node_pcdata, change)
                                 : properties.append_child(pugi::node_pcdata);
    text.set_value(token.text().c_str());
    markParagraphSection(text);
}

/// Marks the properties of a section, which end a paragraph, as those of its last part.
void PartPreparation::markParagraphSection(pugi::xml_node section) {
    insertBefore(section, {TokenKind::ParagraphSectionStart, 0});
    insertAfter(section, {TokenKind::ParagraphSectionEnd, 0});
}

}  // namespace mergeloom::embedded
