#include "office/embedded/letters/OmittedRestoration.h"

#include <cstdlib>
#include <map>
#include <string_view>

namespace mergeloom::embedded {

namespace {

using opc::WordTag;

}  // namespace

void OmittedRestoration::restore() {
    for (const pugi::xml_node mark : marks_) {
        const std::string name = names_.value(mark, "name");
        const std::size_t number =
            std::strtoull(name.c_str() + std::string_view(kOmittedName).size(), nullptr, 10);
        const auto found = content_.find(number);
        if (found == content_.end()) continue;
        const std::string xml = "<x>" + found->second + "</x>";
        pugi::xml_document document;
        if (!document.load_buffer(xml.data(), xml.size(), pugi::parse_full | pugi::parse_ws_pcdata)) continue;
        const pugi::xml_node content = document.document_element();
        makeIdsUnique(content);
        restoreAt(mark, content);
    }
}

void OmittedRestoration::restoreAt(pugi::xml_node mark, pugi::xml_node content) {
    const pugi::xml_node paragraph = names_.ancestor(mark, WordTag::Paragraph);
    switch (names_.tagOf(content.first_child())) {
        case WordTag::ParagraphProperties:
            if (paragraph && mark.parent() == paragraph) splitParagraph(mark, content.first_child());
            return;
        case WordTag::Table:
            // Word moves marks between paragraphs into the next one.
            return insertBefore(paragraph ? paragraph : mark, content);
        default:
            return insertRows(mark, content);
    }
}

/// Inserts rows. Word moves the mark of rows into the row after them, or after the table.
void OmittedRestoration::insertRows(pugi::xml_node mark, pugi::xml_node rows) {
    if (const pugi::xml_node row = names_.ancestor(mark, WordTag::Row)) {
        const bool isBetweenRows =
            names_.ancestor(mark, WordTag::Table) != names_.ancestor(row, WordTag::Table);
        return insertBefore(isBetweenRows ? mark : row, rows);
    }
    if (names_.ancestor(mark, WordTag::Table)) return insertBefore(mark, rows);
    pugi::xml_node table = names_.ancestor(mark, WordTag::Paragraph);
    if (!table) table = mark;
    while (table && names_.tagOf(table) != WordTag::Table)
        table = table.previous_sibling();
    for (const pugi::xml_node row : rows.children()) {
        if (table) table.append_copy(row);
    }
}

void OmittedRestoration::insertBefore(pugi::xml_node next, pugi::xml_node content) {
    for (const pugi::xml_node node : content.children())
        next.parent().insert_copy_before(node, next);
}

/// Ends the paragraph at a mark. The content after the mark becomes a paragraph with the given properties.
void OmittedRestoration::splitParagraph(pugi::xml_node mark, pugi::xml_node properties) {
    pugi::xml_node paragraph = mark.parent();
    pugi::xml_node second = paragraph.parent().insert_child_after(paragraph.name(), paragraph);
    if (properties.first_child()) second.append_copy(properties);
    while (mark.next_sibling())
        second.append_move(mark.next_sibling());
    // The run before the mark preserved the formatting of the end of the line.
    const pugi::xml_node keeper = mark.previous_sibling();
    if (names_.tagOf(keeper) == WordTag::Run) part_.detach(keeper);
}

void OmittedRestoration::makeIdsUnique(pugi::xml_node content) {
    std::map<std::string, std::string> renamed;
    const std::string attribute = names_.attribute("id");
    content.find_node([&](pugi::xml_node node) {
        const WordTag tag = names_.tagOf(node);
        if (tag != WordTag::BookmarkStart && tag != WordTag::BookmarkEnd) return false;
        pugi::xml_attribute id = node.attribute(attribute.c_str());
        const bool isTaken = tag == WordTag::BookmarkStart && ids_.contains(id.value());
        if (isTaken) renamed[id.value()] = freeId();
        const auto found = renamed.find(id.value());
        if (found != renamed.end()) id.set_value(found->second.c_str());
        return false;
    });
}

std::string OmittedRestoration::freeId() {
    for (const std::string& id : ids_)
        lastId_ = std::max<std::int64_t>(lastId_, std::atoll(id.c_str()));
    std::string id = std::to_string(++lastId_);
    ids_.insert(id);
    return id;
}

}  // namespace mergeloom::embedded
