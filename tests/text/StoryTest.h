#pragma once

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/text/EditableStory.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom::embedded {

inline const std::string kWordNamespace = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

inline std::string documentXml(const std::string& body) {
    return "<w:document xmlns:w=\"" + kWordNamespace +
           "\" xmlns:mc=\"m\" xmlns:wp=\"d\" xmlns:wps=\"s\" xmlns:v=\"v\"><w:body>" + body +
           "</w:body></w:document>";
}

struct OpenStory : EditableStory {
    using EditableStory::EditableStory;

    void erase(int start, int end) { eraser.erase({start}, {end}); }
    void insert(int position, const std::string& text) { editor.insertText({position}, text); }
};

/// The stories of one part, of which the first is the body.
struct OpenPart : EditablePart {
    explicit OpenPart(const std::string& partXml)
        : EditablePart(opc::XmlPart::parse(partXml, "/word/document.xml", "test.docx")) {
        open(part->root().first_child());
    }

    void open(pugi::xml_node root) {
        stories.emplace_back(*this, root, "story", table, journal);
        const std::vector<pugi::xml_node> inside = stories.back().story.textBoxes();
        for (const pugi::xml_node textBox : inside)
            open(textBox);
    }

    OpenStory& body() { return stories.front(); }
    BookmarkRecord& add(const std::string& name, int start, int end) {
        body().bookmarks.check({start}, {end});
        return body().bookmarks.add(name, ++lastId, {start}, {end});
    }

    /// What the body element holds.
    [[nodiscard]] std::string bodyXml() const {
        const std::string xml = part->toXml();
        const std::size_t start = xml.find("body>") + 5;
        const std::size_t end = xml.rfind("</", xml.rfind("body>"));
        return xml.substr(start, end - start);
    }

    BookmarkTable table;
    EditJournal journal;
    std::deque<OpenStory> stories;
    int lastId = 100;
};

/// A body of that XML.
struct OpenBody : OpenPart {
    explicit OpenBody(const std::string& body) : OpenPart(documentXml(body)) {}
};

inline std::string describe(const Story& story, const Item* item) {
    switch (item->kind) {
        case ItemKind::Text:
            return "'" + textOf(story, item) + "'";
        case ItemKind::FieldCode:
            return "code'" + std::string(item->node.child_value()) + "'";
        case ItemKind::Character:
            return item->node.name();
        case ItemKind::InlineObject:
            return "object";
        case ItemKind::FieldBegin:
            return "{" + std::to_string(item->length);
        case ItemKind::FieldSeparator:
            return "/";
        case ItemKind::FieldEnd:
            return "}";
        case ItemKind::ParagraphMark:
            return "P";
        case ItemKind::RowMark:
            return "R";
        case ItemKind::Anchor:
            return "anchor";
        case ItemKind::BookmarkStart:
            return "[" + item->bookmark->name;
        case ItemKind::BookmarkEnd:
            return item->bookmark->name + "]";
    }
    return {};
}

/// The items of a story on one line.
inline std::string itemsOf(const Story& story) {
    std::string line;
    for (const Item* item = story.items().first(); item; item = ItemTree::next(item)) {
        line += (line.empty() ? "" : " ") + describe(story, item);
        if (item->kind == ItemKind::Text && utf16Length(item->node.child_value()).value != item->length)
            line += " (counted as " + std::to_string(item->length) + ")";
    }
    return line;
}

/// What an AutomationError of the call says; empty when it raises none.
template <typename Call>
std::string errorOf(Call&& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return error.description();
    }
    return {};
}

}  // namespace mergeloom::embedded
