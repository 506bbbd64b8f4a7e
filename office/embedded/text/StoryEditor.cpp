#include "office/embedded/text/StoryEditor.h"

#include "base/AutomationError.h"
#include "base/Text.h"

namespace mergeloom::embedded {

namespace {

/// Returns the length of the plain text at the beginning of a text.
std::size_t plainLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && static_cast<unsigned char>(text[length]) >= ' ')
        ++length;
    return length;
}

bool endsParagraph(char character) {
    return character == '\r' || character == '\n';
}

/// Removes the paragraph end at the beginning of a text; CR and LF together are one.
void takeParagraphEnd(std::string_view& text) {
    text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
}

bool isFormattingChange(std::string_view name) {
    return name == "rPrChange" || name == "pPrChange" || name == "ins" || name == "del" ||
           name == "moveFrom" || name == "moveTo";
}

/// Removes the records of tracked changes from copied properties: the copy was never changed.
void dropFormattingChanges(pugi::xml_node properties) {
    for (pugi::xml_node child = properties.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (isFormattingChange(opc::localName(child))) {
            properties.remove_child(child);
        } else {
            dropFormattingChanges(child);
        }
        child = next;
    }
}

bool canBeSplit(opc::WordTag tag) {
    return tag == opc::WordTag::Hyperlink || tag == opc::WordTag::SmartTag ||
           tag == opc::WordTag::CustomXml || tag == opc::WordTag::Insertion || tag == opc::WordTag::MoveTo ||
           tag == opc::WordTag::Direction;
}

/// Returns true if the text after an item is in the code of a field. Fields before the place are passed over;
/// the first other text decides.
bool isFollowedByCode(const Story& story, const Item* item) {
    int closed = 0;
    for (; item; item = ItemTree::previous(item)) {
        if (item->kind == ItemKind::FieldEnd) ++closed;
        if (item->kind == ItemKind::FieldBegin && --closed < 0) {
            return story.names().tagOf(item->node) != opc::WordTag::SimpleField;
        }
        const bool decides = closed == 0 && item->takesPlace() && item->kind != ItemKind::FieldBegin;
        if (decides) return item->kind == ItemKind::FieldCode;
    }
    return false;
}

}  // namespace

CharacterCount StoryEditor::insertText(CharacterPosition position, const std::string& text,
                                       TextSetting setting) {
    const CharacterPosition start = position;
    for (std::string_view rest = text; !rest.empty();) {
        if (endsParagraph(rest.front())) {
            insertParagraphMark(position);
            setting.container = {};  // the rest is in another paragraph
            takeParagraphEnd(rest);
            position = position + CharacterCount{1};
        } else if (const std::size_t plain = plainLength(rest); plain > 0) {
            const CharacterCount length = utf16Length(rest.substr(0, plain));
            insertPlain(position, rest.substr(0, plain), length, setting);
            position = position + length;
            rest.remove_prefix(plain);
        } else {
            const bool known = rest.front() == '\t' || rest.front() == '\v' || rest.front() == '\f';
            if (known) insertBreak(position, rest.front(), setting);
            position = position + CharacterCount{known ? 1 : 0};
            rest.remove_prefix(1);
        }
    }
    return position - start;
}

void StoryEditor::insertPlain(CharacterPosition position, std::string_view text, CharacterCount length,
                              const TextSetting& setting) {
    if (setting.formatting) splitRun(position);
    Item* next = itemAfter(position);
    if (story_.positionOf(next) != position) return insertIntoItem(next, position, text, length);
    Item* const previous = ItemTree::previous(next);
    if (!setting.formatting) {
        if (appendToPrevious(previous, position, text, length)) return;
        splitRun(position);
    }
    const bool isCode = isFollowedByCode(story_, previous);
    const pugi::xml_node formatting = setting.formatting ? *setting.formatting : formattingAt(previous, next);
    // The run is created at its place: of a large form, moving it there would take a tenth of the drop.
    const DomPlace place = places_.forRun(previous, next, setting.container);
    const pugi::xml_node run = isCode ? addCodeRun(place, text) : elementFactory_.addTextRun(place, text);
    const pugi::xml_node element = run.first_child();
    format(run, formatting);
    const ItemKind kind = isCode ? ItemKind::FieldCode : ItemKind::Text;
    journal_.insertItemOf(story_, run, next, story_.makeItem(kind, element, length));
    story_.shift(position, {}, length);
}

pugi::xml_node StoryEditor::addCodeRun(const DomPlace& place, std::string_view text) {
    pugi::xml_node run = elementFactory_.addRun(place);
    const pugi::xml_node element = run.append_child(story_.names().element("instrText").c_str());
    element.text().set(text.data(), text.size());
    keepBlanks(element);
    return run;
}

void StoryEditor::insertBreak(CharacterPosition position, char character, const TextSetting& setting) {
    splitRun(position);
    const Item* next = itemAfter(position);
    const pugi::xml_node run =
        makeRun(setting.formatting ? *setting.formatting : formattingAt(ItemTree::previous(next), next));
    pugi::xml_node element = elementFactory_.makeElement(character == '\t' ? "tab" : "br");
    if (character == '\f') element.append_attribute(story_.names().attribute("type").c_str()) = "page";
    moveNode(element, run, run.last_child());
    insertRun(position, run, story_.makeItem(ItemKind::Character, element, {1}), setting.container);
}

void StoryEditor::insertObject(CharacterPosition position, pugi::xml_node run, pugi::xml_node child) {
    splitRun(position);
    insertRun(position, run, story_.makeItem(ItemKind::InlineObject, child, {1}), {});
}

void StoryEditor::insertIntoItem(Item* item, CharacterPosition position, std::string_view text,
                                 CharacterCount length) {
    story_.check(position, position);
    const opc::WordTag tag = story_.names().tagOf(item->node);
    if (tag != opc::WordTag::TextElement && tag != opc::WordTag::InstructionText) {
        throw AutomationError(kCommandFailed, "No text can stand at this place.");
    }
    std::string whole = item->node.child_value();
    whole.insert(byteOffset(whole, position - story_.positionOf(item)), text);
    journal_.setText(story_.part(), item->node, whole);
    journal_.keepBlanks(item->node);
    journal_.setLength(story_.items(), item, CharacterCount{item->length} + length);
    story_.shift(position, {}, length);
}

bool StoryEditor::appendToPrevious(Item* previous, CharacterPosition position, std::string_view text,
                                   CharacterCount length) {
    if (!previous || previous->kind != ItemKind::Text) return false;
    const pugi::xml_node run = previous->node.parent();
    const bool plain = story_.names().tagOf(previous->node) == opc::WordTag::TextElement &&
                       story_.names().tagOf(run.parent()) == opc::WordTag::Paragraph;
    if (!plain) return false;
    journal_.appendText(story_.part(), previous->node, std::string(text));
    journal_.keepBlanks(previous->node);
    journal_.setLength(story_.items(), previous, CharacterCount{previous->length} + length);
    story_.shift(position, {}, length);
    return true;
}

void StoryEditor::insertRun(CharacterPosition position, pugi::xml_node run, Item* item,
                            pugi::xml_node container) {
    Item* next = itemAfter(position);
    const DomPlace place = places_.forRun(ItemTree::previous(next), next, container);
    journal_.insert(story_, run, place, next, item);
    story_.shift(position, {}, CharacterCount{item->length});
}

void StoryEditor::insertParagraphMark(CharacterPosition position) {
    splitRun(position);
    Item* next = itemAfter(position);
    const pugi::xml_node paragraph = story_.paragraphOf(next);
    const DomPlace place = splitContainers(places_.forRun(ItemTree::previous(next), next), paragraph);
    Item* oldMark = next;
    while (oldMark->node != paragraph)
        oldMark = ItemTree::next(oldMark);

    const pugi::xml_node second = addParagraphLike(paragraph);
    pugi::xml_node moving = place.after ? place.after.next_sibling() : paragraph.first_child();
    while (moving) {
        const pugi::xml_node following = moving.next_sibling();
        const bool isContent = story_.names().tagOf(moving) != opc::WordTag::ParagraphProperties;
        if (isContent) journal_.move(story_.part(), moving, second, second.last_child());
        moving = following;
    }
    journal_.insertItem(story_.items(), next, story_.makeItem(ItemKind::ParagraphMark, paragraph, {1}));
    journal_.setNode(oldMark, second);
    story_.shift(position, {}, {1});
}

bool StoryEditor::endsWithOwnParagraph() const {
    const Item* last = story_.items().last();
    return last->kind == ItemKind::ParagraphMark && last->node.parent() == story_.root();
}

void StoryEditor::appendParagraph() {
    const pugi::xml_node root = story_.root();
    const pugi::xml_node section = story_.names().child(root, opc::WordTag::SectionProperties);
    const pugi::xml_node paragraph = elementFactory_.makeParagraph();
    const CharacterPosition end{story_.length().value};
    journal_.move(story_.part(), paragraph, root, section ? section.previous_sibling() : root.last_child());
    journal_.insertItem(story_.items(), nullptr, story_.makeItem(ItemKind::ParagraphMark, paragraph, {1}));
    story_.shift(end, {}, {1});
}

void StoryEditor::splitRun(CharacterPosition position) {
    Item* next = story_.items().itemAt(position);
    if (!next) return;
    const CharacterPosition start = story_.positionOf(next);
    if (start != position) {
        checkSplit(position);
        return splitText(next, position - start);
    }
    if (next->kind == ItemKind::ParagraphMark) return;  // it is in no run
    const Item* previous = ItemTree::previous(next);
    if (!previous || previous->node.parent() != next->node.parent()) return;
    const pugi::xml_node run = next->node.parent();
    if (story_.names().tagOf(run) == opc::WordTag::Run) splitRunAfter(run, previous->node);
}

void StoryEditor::checkSplit(CharacterPosition position) const {
    const Item* item = story_.items().itemAt(position);
    if (!item || story_.positionOf(item) == position) return;
    story_.check(position, position);
    const bool isText = item->kind == ItemKind::Text;
    if (!isText) throw AutomationError(kCommandFailed, "A field's code cannot be split at this place.");
}

void StoryEditor::splitText(Item* item, CharacterCount before) {
    const std::string whole = item->node.child_value();
    const std::size_t bytes = byteOffset(whole, before);
    const pugi::xml_node second = splitRunAfter(item->node.parent(), item->node);
    pugi::xml_node text = elementFactory_.copy(item->node);
    text.text().set(whole.substr(bytes).c_str());
    text.remove_attribute("xml:space");
    keepBlanks(text);
    const pugi::xml_node properties = story_.names().child(second, opc::WordTag::RunProperties);
    journal_.move(story_.part(), text, second, properties);

    journal_.setText(story_.part(), item->node, whole.substr(0, bytes));
    journal_.keepBlanks(item->node);
    const CharacterCount rest = CharacterCount{item->length} - before;
    journal_.setLength(story_.items(), item, before);
    journal_.insertItem(story_.items(), ItemTree::next(item), story_.makeItem(ItemKind::Text, text, rest));
}

pugi::xml_node StoryEditor::splitRunAfter(pugi::xml_node run, pugi::xml_node child) {
    const pugi::xml_node second = makeRun(story_.names().child(run, opc::WordTag::RunProperties));
    journal_.move(story_.part(), second, run.parent(), run);
    while (const pugi::xml_node moving = child.next_sibling()) {
        journal_.move(story_.part(), moving, second, second.last_child());
    }
    return second;
}

DomPlace StoryEditor::splitContainers(DomPlace place, pugi::xml_node paragraph) {
    while (place.parent != paragraph) {
        const pugi::xml_node container = place.parent;
        const bool isField = story_.names().tagOf(container) == opc::WordTag::SimpleField;
        const bool splits = place.after && place.after.next_sibling();
        if (isField || (splits && !canBeSplit(story_.names().tagOf(container)))) {
            throw AutomationError(kCommandFailed, "No paragraph can end at this place.");
        }
        if (!place.after) {
            place = {container.parent(), container.previous_sibling()};
            continue;
        }
        if (splits) {
            const pugi::xml_node second = elementFactory_.makeLike(container);
            journal_.move(story_.part(), second, container.parent(), container);
            while (const pugi::xml_node moving = place.after.next_sibling()) {
                journal_.move(story_.part(), moving, second, second.last_child());
            }
        }
        place = {container.parent(), container};
    }
    return place;
}

pugi::xml_node StoryEditor::addParagraphLike(pugi::xml_node paragraph) {
    const pugi::xml_node second = elementFactory_.addParagraph({paragraph.parent(), paragraph});
    journal_.noteAdded(story_.part(), second);
    const pugi::xml_node properties = story_.names().child(paragraph, opc::WordTag::ParagraphProperties);
    if (!properties) return second;
    const pugi::xml_node copy = elementFactory_.copy(properties);
    dropFormattingChanges(copy);
    moveNode(copy, second, {});
    // A section ends with the last of the paragraphs.
    const pugi::xml_node section = story_.names().child(properties, opc::WordTag::SectionProperties);
    if (section) journal_.remove(story_.part(), section);
    return second;
}

Formatting StoryEditor::formattingAtPlace(CharacterPosition position) const {
    const Item* next = itemAfter(position);
    if (story_.positionOf(next) != position) return {};
    return formattingAt(ItemTree::previous(next), next);
}

pugi::xml_node StoryEditor::formattingAt(const Item* previous, const Item* next) const {
    const opc::WordNames& names = story_.names();
    if (previous && !previous->takesPlace()) previous = ItemTree::previousInText(previous);
    const pugi::xml_node paragraph = story_.paragraphOf(next);
    if (previous && previous->kind != ItemKind::ParagraphMark && isInside(previous->node, paragraph)) {
        return names.child(places_.inlineElementOf(previous), opc::WordTag::RunProperties);
    }
    if (next->kind != ItemKind::ParagraphMark) {
        return names.child(places_.inlineElementOf(next), opc::WordTag::RunProperties);
    }
    return names.child(names.child(paragraph, opc::WordTag::ParagraphProperties),
                       opc::WordTag::RunProperties);
}

pugi::xml_node StoryEditor::makeRun(pugi::xml_node formatting) {
    const pugi::xml_node run = elementFactory_.makeRun();
    format(run, formatting);
    return run;
}

void StoryEditor::format(pugi::xml_node run, pugi::xml_node formatting) {
    if (!formatting) return;
    const pugi::xml_node copy = elementFactory_.copy(formatting);
    dropFormattingChanges(copy);
    moveNode(copy, run, {});
}

Item* StoryEditor::itemAfter(CharacterPosition position) const {
    Item* item = story_.items().itemAt(position);
    if (!item) throw AutomationError(kCommandFailed, "No text can stand behind the last paragraph.");
    return item;
}

}  // namespace mergeloom::embedded
