#include "office/graft/TextReplay.h"

#include "base/Text.h"
#include "office/graft/LinePartners.h"
#include "office/graft/Refusal.h"
#include "office/graft/SequenceAlignment.h"

#include <algorithm>
#include <ranges>

namespace mergeloom::graft {

namespace {

using embedded::Item;
using embedded::ItemKind;
using embedded::ItemTree;

/// Returns the outermost table around a line that is deeper than the given depth.
pugi::xml_node tableOf(const Line& line, int depth, const opc::WordNames& names) {
    pugi::xml_node found;
    int around = line.depth;
    for (pugi::xml_node node = line.node; node && around > depth; node = node.parent()) {
        if (names.tagOf(node) != opc::WordTag::Table) continue;
        found = node;
        --around;
    }
    return found;
}

/// Returns the total width of a table's columns in twips.
std::int64_t widthOf(pugi::xml_node table, const opc::WordNames& names) {
    std::int64_t width = 0;
    for (const pugi::xml_node column : table.child(names.element("tblGrid").c_str()).children())
        width += std::strtoll(names.value(column, "w"), nullptr, 10);
    return width;
}

bool isTypedCharacter(char32_t code) {
    return code == U'\t' || code == U'\v' || code == U'\f' ||
           (code >= 0x20 && code != kObject && code != kField);
}

}  // namespace

TextReplay::TextReplay(embedded::WordContent& content, embedded::Story& original, const ReadStory& baseline,
                       const ReadStory& edited, PictureTransfer& pictures)
    : content_(content),
      story_(original),
      baseline_(baseline),
      edited_(edited),
      pictures_(pictures),
      lines_(LineReader().read(original)),
      partners_(partnersByText(baseline.lines, lines_)) {}

void TextReplay::repeat(const std::vector<TextEdit>& edits) {
    for (const TextEdit& edit : std::views::reverse(edits))
        repeat(edit);
}

void TextReplay::repeat(const TextEdit& edit) {
    const bool erases = edit.formerStart != edit.formerEnd;
    const bool inserts = edit.nowStart != edit.nowEnd;
    if (hasStructure(edit)) {
        const std::optional<InsertedLines> lines = wholeLinesOf(edit);
        if (!lines && repeatApart(edit)) return;
        if (!lines) refuse("text around a table was changed together with it", edit.nowStart.line);
        if (erases) erase(edit);
        return insertLines(*lines);
    }
    if (!erases) return insert(edit);
    if (!inserts) return void(erase(edit));
    insertInLine(edit);
}

/// Repeats new text at the end of a line and new lines after it one after the other. Returns false for other
/// edits.
bool TextReplay::repeatApart(const TextEdit& edit) {
    const bool isInOneLine = edit.formerStart.line == edit.formerEnd.line;
    if (!isInOneLine || edit.nowStart.line >= edited_.lines.size()) return false;
    const LinePlace end{edit.nowStart.line, edited_.lines[edit.nowStart.line].units.size()};
    const TextEdit lines{edit.formerEnd, edit.formerEnd, end, edit.nowEnd};
    if (end == edit.nowStart || !wholeLinesOf(lines)) return false;
    repeat(lines);
    repeat(TextEdit{edit.formerStart, edit.formerEnd, edit.nowStart, end});
    return true;
}

bool TextReplay::hasStructure(const TextEdit& edit) const {
    const int depth = depthAfter(edit.nowEnd.line);
    const auto lines =
        std::span(edited_.lines).subspan(edit.nowStart.line, edit.nowEnd.line - edit.nowStart.line);
    return std::ranges::any_of(
        lines, [&](const Line& line) { return line.depth != depth || line.end != LineEnd::Paragraph; });
}

int TextReplay::depthAfter(std::size_t nowLine) const {
    return nowLine < edited_.lines.size() ? edited_.lines[nowLine].depth : 0;
}

/// Lines that were inserted at the end of a line begin with its mark. Inserting them after that line gives
/// the same text.
std::optional<TextReplay::InsertedLines> TextReplay::wholeLinesOf(const TextEdit& edit) const {
    const auto& now = edited_.lines;
    if (edit.nowStart.unit == 0 && edit.nowEnd.unit == 0 && edit.formerEnd.unit == 0)
        return InsertedLines{edit.formerEnd.line, edit.nowStart.line, edit.nowEnd.line};
    const bool isAtEnds = edit.nowStart.line < now.size() && edit.nowEnd.line < now.size() &&
                          edit.nowStart.unit == now[edit.nowStart.line].units.size() &&
                          edit.nowEnd.unit == now[edit.nowEnd.line].units.size() &&
                          edit.formerStart == edit.formerEnd &&
                          edit.formerEnd.unit == baseline_.lines[edit.formerEnd.line].units.size();
    if (!isAtEnds) return {};
    const Line& first = now[edit.nowStart.line];
    const Line& last = now[edit.nowEnd.line];
    if (first.end != last.end || first.depth != last.depth || first.end != LineEnd::Paragraph) return {};
    return InsertedLines{edit.formerEnd.line + 1, edit.nowStart.line + 1, edit.nowEnd.line + 1};
}

CharacterPosition TextReplay::erase(const TextEdit& edit) {
    const Line& first = partner(edit.formerStart.line);
    const bool reachesIntoLast = edit.formerEnd.unit > 0;
    const std::size_t lastLine = reachesIntoLast ? edit.formerEnd.line : edit.formerEnd.line - 1;
    const Line& last = partner(lastLine);
    const auto between = static_cast<std::size_t>(&last - &first);
    if (between != lastLine - edit.formerStart.line)
        throw Refusal("LibreOffice reads the erased text differently from the file", shownText(first));
    const CharacterPosition start =
        edit.formerStart.unit == 0 ? first.start
                                   : lastPositionOf(lines_, {static_cast<std::size_t>(&first - lines_.data()),
                                                             edit.formerStart.unit});
    const CharacterPosition end =
        reachesIntoLast ? last.units[edit.formerEnd.unit - 1].end : CharacterPosition{last.mark.value + 1};
    replace(start, end, {});
    return start;
}

void TextReplay::insert(const TextEdit& edit) {
    const bool hasMarks = edit.nowStart.line != edit.nowEnd.line;
    const std::optional<InsertedLines> lines = hasMarks ? wholeLinesOf(edit) : std::nullopt;
    if (lines) return insertLines(*lines);
    insertInLine(edit);
}

/// New text becomes part of the run before it if both look the same in the export.
void TextReplay::insertInLine(const TextEdit& edit) {
    const NewText text = textOf(edit.nowStart, edit.nowEnd);
    const Line& line = partner(edit.formerStart.line);
    if (edit.formerStart != edit.formerEnd) {
        const bool isInOneLine = edit.formerStart.line == edit.formerEnd.line;
        if (!isInOneLine) {
            const CharacterPosition start = erase(edit);
            return replace(start, start, text);
        }
        return replace(line.units[edit.formerStart.unit].start, line.units[edit.formerEnd.unit - 1].end,
                       text);
    }
    const std::size_t unit = edit.formerStart.unit;
    const auto& now = edited_.lines[edit.nowStart.line].units;
    const bool joinsFormer = unit > 0 && edit.nowStart.unit > 0 && edit.nowStart.unit < now.size() &&
                             now[edit.nowStart.unit - 1].format == now[edit.nowStart.unit].format;
    const CharacterPosition position = joinsFormer                ? line.units[unit - 1].end
                                       : unit < line.units.size() ? line.units[unit].start
                                                                  : line.mark;
    replace(position, position, text);
}

TextReplay::NewText TextReplay::textOf(LinePlace start, LinePlace end) const {
    NewText text;
    for (std::size_t number = start.line; number < end.line; ++number) {
        const Line& line = edited_.lines[number];
        appendTo(text, line, number == start.line ? start.unit : 0, line.units.size());
        text.text += '\r';
    }
    if (end.unit > 0)
        appendTo(text, edited_.lines[end.line], start.line == end.line ? start.unit : 0, end.unit);
    return text;
}

void TextReplay::appendTo(NewText& text, const Line& line, std::size_t start, std::size_t end) {
    for (std::size_t unit = start; unit < end; ++unit) {
        const char32_t code = line.units[unit].code;
        if (code == kField) throw Refusal("a field was inserted", shownText(line));
        if (code == kObject) {
            text.pictures.push_back(line.units[unit].run);
        } else if (!isTypedCharacter(code)) {
            throw Refusal("a note or a special character was inserted", shownText(line));
        }
        appendCodePoint(text.text, code);
    }
}

/// Inserts the blocks of the lines from the last to the first, each before the same former line.
void TextReplay::insertLines(const InsertedLines& lines) {
    const auto& now = edited_.lines;
    const opc::WordNames& names = edited_.story->names();
    const int depth = depthAfter(lines.end);
    std::size_t end = lines.end;
    while (end > lines.start) {
        std::size_t start = end - 1;
        const pugi::xml_node table = tableOf(now[start], depth, names);
        while (start > lines.start && tableOf(now[start - 1], depth, names) == table)
            --start;
        if (!table) {
            insertParagraphs({lines.before, start, end}, start == lines.start);
        } else if (start > 0 && tableOf(now[start - 1], depth, names) == table) {
            appendRows({lines.before, start, end});
        } else {
            insertTable(placeOfTable({lines.before, start, end}, end < lines.end), start, end);
        }
        end = start;
    }
}

/// Returns the start of the line after a new table. At the end of a story this is a new line, which has been
/// inserted after the last former one.
CharacterPosition TextReplay::placeOfTable(const InsertedLines& lines, bool hasNewLineAfter) const {
    if (hasPartner(lines.before)) return partner(lines.before).start;
    const bool isAtEnd = lines.before == baseline_.lines.size() && hasNewLineAfter && lines.before > 0;
    if (!isAtEnd) refuse("there is no line after the new table", lines.start);
    return {partner(lines.before - 1).mark.value + 1};
}

/// Paragraphs after a new table are not inserted after the former line, except at the end of a story.
void TextReplay::insertParagraphs(const InsertedLines& lines, bool isFirst) {
    const auto& now = edited_.lines;
    const int depth = now[lines.start].depth;
    for (std::size_t line = lines.start; line < lines.end; ++line)
        if (now[line].end != LineEnd::Paragraph) refuse("a row was inserted into a table", line);
    NewText text = textOf({lines.start, 0}, {lines.end - 1, now[lines.end - 1].units.size()});
    const bool hasFormer = lines.before > 0 && hasPartner(lines.before - 1) &&
                           baseline_.lines[lines.before - 1].end == LineEnd::Paragraph &&
                           baseline_.lines[lines.before - 1].depth == depth &&
                           !endsSection(partner(lines.before - 1));
    const bool hasNext = lines.before < baseline_.lines.size() && hasPartner(lines.before) &&
                         baseline_.lines[lines.before].depth == depth;
    const bool followsFormer =
        hasFormer && isFirst && lines.start > 0 && looksAlike(lines.start, lines.start - 1);
    if (hasFormer && (followsFormer || !hasNext)) {
        const CharacterPosition position = partner(lines.before - 1).mark;
        text.text.insert(0, "\r");
        return replace(position, position, text);
    }
    if (!hasNext) refuse("the place of new text is not found in the file", lines.start);
    const CharacterPosition position = partner(lines.before).start;
    text.text += '\r';
    replace(position, position, text);
}

bool TextReplay::looksAlike(std::size_t nowLine, std::size_t otherNowLine) const {
    const opc::WordNames& names = edited_.story->names();
    const auto styleOf = [&](std::size_t line) {
        const pugi::xml_node properties =
            names.child(edited_.lines[line].node, opc::WordTag::ParagraphProperties);
        return std::string_view(names.value(properties.child(names.element("pStyle").c_str()), "val"));
    };
    return styleOf(nowLine) == styleOf(otherNowLine);
}

bool TextReplay::endsSection(const Line& line) const {
    const opc::WordNames& names = story_.names();
    const pugi::xml_node properties = names.child(line.node, opc::WordTag::ParagraphProperties);
    return static_cast<bool>(names.child(properties, opc::WordTag::SectionProperties));
}

void TextReplay::insertTable(CharacterPosition position, std::size_t start, std::size_t end) {
    const opc::WordNames& names = edited_.story->names();
    const int depth = depthAfter(end);
    const pugi::xml_node table = tableOf(edited_.lines[start], depth, names);
    const bool isPlain = embedded::isUniform(table, names) &&
                         std::ranges::all_of(std::span(edited_.lines).subspan(start, end - start),
                                             [&](const Line& line) { return line.depth == depth + 1; });
    if (!isPlain) refuse("a table with merged cells or with tables in it was inserted", start);
    content_.beginEdit(story_, position, position);
    embedded::TableShape shape;
    shape.rows = static_cast<int>(embedded::rowsOf(table, names).size());
    shape.columns = embedded::columnCountOf(table, names);
    shape.width = widthOf(table, names);
    shape.hasGridStyle = content_.hasStyle("TableGrid");
    content_.editable(story_).tables.insertTable(position, shape);
    fillCells(story_.items().itemAt(position), start, end);
}

void TextReplay::appendRows(const InsertedLines& lines) {
    if (lines.before == 0 || !hasPartner(lines.before - 1) ||
        baseline_.lines[lines.before - 1].end != LineEnd::Row)
        refuse("a row was inserted into a table", lines.start);
    const Item* last = story_.items().itemAt(partner(lines.before - 1).mark);
    content_.beginEdit(story_, partner(lines.before - 1).mark, partner(lines.before - 1).mark);
    for (std::size_t start = lines.start; start < lines.end;) {
        std::size_t end = start;
        while (edited_.lines[end].end != LineEnd::Row)
            ++end;
        const Item* const before = last;
        last = content_.editable(story_).tables.appendRow(last);
        fillCells(ItemTree::next(before), start, end + 1);
        start = end + 1;
    }
}

/// Fills new, empty cells with the text of lines, from the last cell to the first.
void TextReplay::fillCells(const Item* firstItem, std::size_t start, std::size_t end) {
    std::vector<const Item*> cells;
    std::vector<NewText> texts;
    NewText text;
    const Item* item = firstItem;
    for (std::size_t number = start; number < end; ++number) {
        const Line& line = edited_.lines[number];
        appendTo(text, line, 0, line.units.size());
        if (line.end == LineEnd::Paragraph) text.text += '\r';
        if (line.end == LineEnd::Paragraph) continue;
        while (item != nullptr && item->kind != ItemKind::ParagraphMark && item->kind != ItemKind::RowMark)
            item = ItemTree::next(item);
        const bool isRow = line.end == LineEnd::Row;
        if (item == nullptr || (item->kind == ItemKind::RowMark) != isRow)
            refuse("the rows of a new table have different cells", number);
        if (!isRow) {
            cells.push_back(item);
            texts.push_back(std::move(text));
        }
        text = {};
        item = ItemTree::next(item);
    }
    for (std::size_t cell = cells.size(); cell-- > 0;) {
        const CharacterPosition position = story_.positionOf(cells[cell]);
        if (!texts[cell].text.empty()) replace(position, position, texts[cell]);
    }
}

/// Inserts texts and pictures from the last to the first.
void TextReplay::replace(CharacterPosition start, CharacterPosition end, const NewText& text) {
    if (text.pictures.empty()) {
        content_.replace(story_, start, end, text.text);
        return;
    }
    content_.replace(story_, start, end, {});
    std::string mark;
    appendCodePoint(mark, kObject);
    std::string_view rest = text.text;
    for (std::size_t picture = text.pictures.size(); picture-- > 0;) {
        const std::size_t at = rest.rfind(mark);
        content_.replace(story_, start, start, std::string(rest.substr(at + mark.size())));
        pictures_.insert(content_, story_, start, *edited_.story,
                         text.pictures[picture].child("w:drawing").child("wp:inline"));
        rest = rest.substr(0, at);
    }
    content_.replace(story_, start, start, std::string(rest));
}

const Line& TextReplay::partner(std::size_t formerLine) const {
    if (!hasPartner(formerLine)) {
        throw Refusal("LibreOffice reads the paragraph differently from the file",
                      formerLine < baseline_.lines.size() ? shownText(baseline_.lines[formerLine]) : "");
    }
    return lines_[partners_[formerLine]];
}

bool TextReplay::hasPartner(std::size_t formerLine) const {
    return formerLine < partners_.size() && partners_[formerLine] != kNoPartner;
}

void TextReplay::refuse(const std::string& reason, std::size_t nowLine) const {
    throw Refusal(reason, nowLine < edited_.lines.size() ? shownText(edited_.lines[nowLine]) : "");
}

}  // namespace mergeloom::graft
