
#include "base/Text.h"
#include "office/embedded/text/Story.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mergeloom::embedded {

namespace {

/// Returns true if a picture floats: a shape of VML does when its style says so (ECMA-376 Part 4, 19.1.2.19).
bool floats(pugi::xml_node picture) {
    const pugi::xml_node shape = picture.find_child(
        [](pugi::xml_node child) { return !std::string_view(child.attribute("style").value()).empty(); });
    return std::string_view(shape.attribute("style").value()).find("position:absolute") !=
           std::string_view::npos;
}

/// Returns the first child that is no white space.
pugi::xml_node firstElement(pugi::xml_node node) {
    return node.find_child([](pugi::xml_node child) { return child.type() == pugi::node_element; });
}

bool isAnchor(pugi::xml_node drawing) {
    return std::string_view(firstElement(drawing).name()).ends_with("anchor");
}

/// Joins a text element's value in its first node; comments, which stay, or CDATA sections may have split it.
void joinText(pugi::xml_node element) {
    std::string text;
    for (pugi::xml_node child = element.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            text += child.value();
            element.remove_child(child);
        }
        child = next;
    }
    element.prepend_child(pugi::node_pcdata).set_value(text.c_str());
}

}  // namespace

/// Reads the elements of a story into its items, in order. Elements that are not part of the text
/// (properties, comment ranges, proofing marks, unknown extensions) make no items and stay as they are. So do
/// marks of bookmarks without a counterpart in the story, or with a name that another bookmark already has.
class StoryReader {
  public:
    StoryReader(Story& story, BookmarkTable& bookmarks)
        : story_(story), names_(story.names()), bookmarks_(bookmarks) {}

    void read();

  private:
    void readChildren(pugi::xml_node container);
    void readElement(pugi::xml_node node);
    void readRun(pugi::xml_node run);
    void readRunChild(pugi::xml_node node);
    void readText(pugi::xml_node node, ItemKind kind);
    void readFieldCharacter(pugi::xml_node node);
    void readSimpleField(pugi::xml_node node);
    void readDrawing(pugi::xml_node runChild, pugi::xml_node drawing);
    void add(ItemKind kind, pugi::xml_node node, CharacterCount length = {1});
    /// Appends a paragraph if the story does not end with one, as in some documents of other programs.
    void endWithParagraph();
    void pairMarks();
    void listBookmark(Item* start, Item* end);
    void collectCopies(pugi::xml_node fallback);

    Story& story_;
    const opc::WordNames& names_;
    BookmarkTable& bookmarks_;
    std::vector<Item*> items_;
};

void Story::read(BookmarkTable& bookmarks) {
    StoryReader(*this, bookmarks).read();
}

void StoryReader::read() {
    story_.hasContentControls_ =
        static_cast<bool>(names_.ancestor(story_.root_, opc::WordTag::ContentControl));
    story_.hasAlternatives_ = static_cast<bool>(names_.ancestor(story_.root_, opc::WordTag::Choice));
    readChildren(story_.root_);
    endWithParagraph();
    pairMarks();
    story_.items_.build(items_);
}

void StoryReader::endWithParagraph() {
    const auto takesPlace = [](const Item* item) { return item->takesPlace(); };
    const auto last = std::find_if(items_.rbegin(), items_.rend(), takesPlace);
    if (last != items_.rend() && (*last)->kind == ItemKind::ParagraphMark) return;
    const std::string name = names_.element("p");
    const pugi::xml_node section = names_.child(story_.root_, opc::WordTag::SectionProperties);
    add(ItemKind::ParagraphMark, section ? story_.root_.insert_child_before(name.c_str(), section)
                                         : story_.root_.append_child(name.c_str()));
}

void StoryReader::pairMarks() {
    std::unordered_map<std::string_view, Item*> starts;
    for (Item* item : items_) {
        const std::string_view id = item->isMark() ? names_.value(item->node, "id") : "";
        if (item->kind == ItemKind::BookmarkStart) starts.try_emplace(id, item);
        if (item->kind != ItemKind::BookmarkEnd) continue;
        const auto start = starts.find(id);
        if (start == starts.end()) continue;
        listBookmark(start->second, item);
        starts.erase(start);
    }
    std::erase_if(items_, [](const Item* item) { return item->isMark() && !item->bookmark; });
}

void StoryReader::listBookmark(Item* start, Item* end) {
    const std::string name = names_.value(start->node, "name");
    if (name.empty() || bookmarks_.find(name)) return;
    const std::int64_t id = std::strtoll(names_.value(start->node, "id"), nullptr, 10);
    BookmarkRecord& record = bookmarks_.create(name, id, story_);
    record.start = start;
    record.end = end;
    start->bookmark = end->bookmark = &record;
    bookmarks_.list(record);
}

void StoryReader::add(ItemKind kind, pugi::xml_node node, CharacterCount length) {
    items_.push_back(story_.makeItem(kind, node, length));
}

void StoryReader::readChildren(pugi::xml_node container) {
    for (const pugi::xml_node child : container.children())
        readElement(child);
}

void StoryReader::readElement(pugi::xml_node node) {
    switch (names_.tagOf(node)) {
        case opc::WordTag::Run:
            return readRun(node);
        case opc::WordTag::Paragraph:
            readChildren(node);
            return add(ItemKind::ParagraphMark, node);
        case opc::WordTag::Row:
            readChildren(node);
            return add(ItemKind::RowMark, node);
        case opc::WordTag::AlternateContent:
            story_.hasAlternatives_ = true;
            return readChildren(names_.child(node, opc::WordTag::Choice));
        case opc::WordTag::ContentControl:
            story_.hasContentControls_ = true;
            return readChildren(names_.child(node, opc::WordTag::ContentControlContent));
        case opc::WordTag::Table:
        case opc::WordTag::CellElement:
            // Also in a damaged table, which has no rows.
            story_.hasTables_ = true;
            return readChildren(node);
        case opc::WordTag::CustomXml:
        case opc::WordTag::SmartTag:
        case opc::WordTag::Hyperlink:
        case opc::WordTag::Insertion:
        case opc::WordTag::Deletion:
        case opc::WordTag::MoveFrom:
        case opc::WordTag::MoveTo:
        case opc::WordTag::Direction:
            return readChildren(node);
        case opc::WordTag::SimpleField:
            return readSimpleField(node);
        case opc::WordTag::Math:
            return add(ItemKind::InlineObject, node);
        case opc::WordTag::BookmarkStart:
            return add(ItemKind::BookmarkStart, node, {0});
        case opc::WordTag::BookmarkEnd:
            return add(ItemKind::BookmarkEnd, node, {0});
        default:
            return;
    }
}

void StoryReader::readRun(pugi::xml_node run) {
    for (const pugi::xml_node child : run.children())
        readRunChild(child);
}

void StoryReader::readRunChild(pugi::xml_node node) {
    switch (names_.tagOf(node)) {
        case opc::WordTag::TextElement:
        case opc::WordTag::DeletedText:
            return readText(node, ItemKind::Text);
        case opc::WordTag::InstructionText:
        case opc::WordTag::DeletedInstructionText:
            return readText(node, ItemKind::FieldCode);
        case opc::WordTag::Tab:
        case opc::WordTag::Break:
        case opc::WordTag::SingleCharacter:
            return add(ItemKind::Character, node);
        case opc::WordTag::Ruby:
        case opc::WordTag::EmbeddedObject:
            collectTextBoxes(names_, node, story_.textBoxes_);
            return add(ItemKind::InlineObject, node);
        case opc::WordTag::Drawing:
        case opc::WordTag::VmlPicture:
            return readDrawing(node, node);
        case opc::WordTag::AlternateContent:
            readDrawing(node, firstElement(names_.child(node, opc::WordTag::Choice)));
            for (const pugi::xml_node branch : node.children()) {
                if (names_.tagOf(branch) != opc::WordTag::Choice) collectCopies(branch);
            }
            return;
        case opc::WordTag::FieldCharacter:
            return readFieldCharacter(node);
        default:
            return;
    }
}

void StoryReader::readText(pugi::xml_node node, ItemKind kind) {
    if (node.first_child() != node.last_child()) joinText(node);
    const CharacterCount length = utf16Length(node.child_value());
    if (length.value > 0) add(kind, node, length);
}

void StoryReader::readFieldCharacter(pugi::xml_node node) {
    const std::string_view type = names_.value(node, "fldCharType");
    if (type == "begin") return add(ItemKind::FieldBegin, node);
    if (type == "separate") return add(ItemKind::FieldSeparator, node);
    add(ItemKind::FieldEnd, node);
}

void StoryReader::readSimpleField(pugi::xml_node node) {
    // The begin, the code and the separator have no elements of their own; they count as Word counts them.
    add(ItemKind::FieldBegin, node, utf16Length(names_.value(node, "instr")) + CharacterCount{2});
    readChildren(node);
    add(ItemKind::FieldEnd, node);
}

void StoryReader::readDrawing(pugi::xml_node runChild, pugi::xml_node drawing) {
    const bool floating =
        names_.tagOf(drawing) == opc::WordTag::VmlPicture ? floats(drawing) : isAnchor(drawing);
    add(floating ? ItemKind::Anchor : ItemKind::InlineObject, runChild, {floating ? 0 : 1});
    collectTextBoxes(names_, drawing, story_.textBoxes_);
}

void StoryReader::collectCopies(pugi::xml_node fallback) {
    for (const pugi::xml_node child : fallback.children()) {
        const opc::WordTag tag = names_.tagOf(child);
        if (tag == opc::WordTag::BookmarkStart || tag == opc::WordTag::BookmarkEnd) {
            bookmarks_.addCopy(
                {names_.value(child, "name"), names_.value(child, "id"), &story_.part_, child});
        } else {
            collectCopies(child);
        }
    }
}

}  // namespace mergeloom::embedded
