#include "office/graft/StoryLines.h"

#include "base/Text.h"
#include "office/graft/ParagraphKey.h"
#include "office/model/word/FieldCode.h"

#include <algorithm>
#include <utility>

namespace mergeloom::graft {

namespace {

using embedded::Item;
using embedded::ItemKind;
using embedded::ItemTree;
using embedded::Story;
using opc::WordTag;

constexpr std::size_t kShownLength = 40;

int depthOf(pugi::xml_node node, const Story& story) {
    int depth = 0;
    for (; node && node != story.root(); node = node.parent())
        if (story.names().tagOf(node) == WordTag::Table) ++depth;
    return depth;
}

bool isSimple(const Story& story, const Item* item) {
    return story.names().tagOf(item->node) == WordTag::SimpleField;
}

/// The last item of a field and its code.
struct FieldExtent {
    const Item* end = nullptr;
    std::string code;
    bool isInOneLine = true;
};

FieldExtent extentOf(const Story& story, const Item* begin) {
    FieldExtent extent;
    bool isInCode = !isSimple(story, begin);
    if (!isInCode) extent.code = story.names().value(begin->node, "instr");
    int depth = 0;
    for (const Item* item = begin; item != nullptr; item = ItemTree::next(item)) {
        if (item->kind == ItemKind::FieldBegin) ++depth;
        if (item->kind == ItemKind::FieldSeparator && depth == 1) isInCode = false;
        if (item->kind == ItemKind::FieldCode && depth == 1 && isInCode)
            extent.code += item->node.child_value();
        const bool endsLine = item->kind == ItemKind::ParagraphMark || item->kind == ItemKind::RowMark;
        if (endsLine) extent.isInOneLine = false;
        if (item->kind == ItemKind::FieldEnd && --depth == 0) {
            extent.end = item;
            break;
        }
    }
    return extent;
}

CharacterPosition endOf(CharacterPosition start, const Item* item) {
    return {start.value + static_cast<std::int64_t>(item->length)};
}

pugi::xml_node runOf(const Story& story, const Item* item) {
    return story.names().ancestor(item->node, WordTag::Run);
}

void addText(const Story& story, const Item* item, CharacterPosition at, Line& line) {
    const std::string text = embedded::textOf(story, item);
    const pugi::xml_node run = runOf(story, item);
    // A symbol is read as "(" in a text.
    if (item->kind == ItemKind::Character && text == "(") {
        line.units.push_back({kObject, at, {at.value + 1}, 0, run});
        return;
    }
    std::string_view rest = text;
    while (!rest.empty()) {
        const char32_t code = takeCodePoint(rest);
        const std::int64_t length = code > 0xFFFF ? 2 : 1;
        line.units.push_back({code, at, {at.value + length}, 0, run});
        at.value += length;
    }
}

/// Adds a field whose text the office computes as one unit. Returns its last item; null for other fields,
/// whose results are text of the line.
const Item* addField(const Story& story, const Item* begin, CharacterPosition at, Line& line) {
    const FieldExtent field = extentOf(story, begin);
    const bool isUnit = field.end != nullptr && field.isInOneLine && !word::hasTextOfItsOwn(field.code);
    if (!isUnit) return nullptr;
    const CharacterPosition end = endOf(story.positionOf(field.end), field.end);
    line.units.push_back({kField, at, end, 0, runOf(story, begin)});
    return field.end;
}

void addMark(const Story& story, const Item* mark, CharacterPosition at, Line& line) {
    const bool isRow = mark->kind == ItemKind::RowMark;
    line.end = isRow ? LineEnd::Row : (story.endsCell(mark) ? LineEnd::Cell : LineEnd::Paragraph);
    line.mark = at;
    line.node = mark->node;
    line.depth = depthOf(mark->node, story);
}

}  // namespace

std::string textKeyOf(const Line& line) {
    std::string key = std::to_string(line.depth) + std::to_string(static_cast<int>(line.end)) + ":";
    for (const Unit& unit : line.units)
        appendCodePoint(key, unit.code);
    return key;
}

std::string shownText(const Line& line) {
    std::string text;
    for (const Unit& unit : line.units) {
        if (unit.code != kObject && unit.code != kField) appendCodePoint(text, unit.code);
        if (text.size() >= kShownLength) return text + "…";
    }
    return text;
}

std::vector<Line> LineReader::read(Story& story) const {
    std::vector<Line> lines;
    Line line;
    CharacterPosition at{0};
    for (const Item* item = story.items().first(); item != nullptr; item = ItemTree::next(item)) {
        CharacterPosition after = endOf(at, item);
        switch (item->kind) {
            case ItemKind::FieldBegin:
                if (const Item* const end = addField(story, item, at, line)) {
                    item = end;
                    after = line.units.back().end;
                }
                break;
            case ItemKind::Text:
            case ItemKind::Character:
                addText(story, item, at, line);
                break;
            case ItemKind::InlineObject:
                line.units.push_back({kObject, at, after, 0, runOf(story, item)});
                break;
            case ItemKind::ParagraphMark:
            case ItemKind::RowMark:
                addMark(story, item, at, line);
                if (canonical_ != nullptr) describe(story, line);
                lines.push_back(std::exchange(line, {}));
                line.start = after;
                break;
            default:
                break;
        }
        at = after;
    }
    return lines;
}

void LineReader::describe(const Story& story, Line& line) const {
    pugi::xml_node known;
    int format = 0;
    for (Unit& unit : line.units) {
        if (!known || unit.run != known) format = formatOf(story, unit.run);
        known = unit.run;
        unit.format = format;
    }
    const opc::WordNames& names = story.names();
    line.key = textKeyOf(line).substr(0, 2) + containersOf(line.node, story.root(), names, *canonical_) +
               (line.end == LineEnd::Row ? rowKey(line.node, names, *canonical_)
                                         : paragraphKey(line.node, names, *canonical_));
}

int LineReader::formatOf(const Story& story, pugi::xml_node run) const {
    const opc::WordNames& names = story.names();
    const pugi::xml_node paragraph = names.ancestor(run, WordTag::Paragraph);
    return formats_->of(containersOf(run, paragraph, names, *canonical_) +
                        canonical_->of(names.child(run, WordTag::RunProperties)));
}

}  // namespace mergeloom::graft
