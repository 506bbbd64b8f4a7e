#include "office/libreoffice/word/StoryReader.h"

#include "base/Text.h"
#include "office/libreoffice/word/StoredField.h"
#include "office/libreoffice/word/StoredTable.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

constexpr std::int64_t kPairLength = 2;

template <std::size_t Size>
bool isAmong(const std::string_view (&names)[Size], std::string_view name) {
    return std::ranges::find(names, name) != std::end(names);
}

/// What holds paragraphs and tables without being a text of its own.
constexpr std::string_view kGroups[] = {
    "text:list",         "text:list-item",          "text:list-header",        "text:section",
    "text:index-body",   "text:index-title",        "text:table-of-content",   "text:illustration-index",
    "text:table-index",  "text:object-index",       "text:alphabetical-index", "text:user-index",
    "text:bibliography", "text:numbered-paragraph",
};
/// What holds characters without being one.
constexpr std::string_view kSpans[] = {"text:span", "text:a", "text:ruby", "text:ruby-base", "draw:a"};
/// A field whose text is part of the document's; that of a variable is only when it is no number.
bool isInput(const pugi::xml_node& element) {
    const std::string_view name = element.name();
    return name == "text:text-input" ||
           (name == "text:variable-input" &&
            std::string_view(element.attribute("office:value-type").value()) == "string");
}
/// What takes a character where it begins, and another one where it ends.
bool isBracket(const pugi::xml_node& element) {
    return isInput(element) || std::string_view(element.name()) == "loext:content-control";
}
/// What takes a character where it begins.
constexpr std::string_view kMetas[] = {"text:meta", "text:meta-field"};
constexpr std::string_view kCharacters[] = {
    "text:tab",      "text:line-break",      "text:reference-mark",
    "text:toc-mark", "text:user-index-mark", "text:alphabetical-index-mark",
};
constexpr std::string_view kNothing[] = {
    "text:ruby-text",
    "text:soft-page-break",
    "text:number",
    "text:change",
    "text:change-start",
    "text:change-end",
    "text:reference-mark-start",
    "text:reference-mark-end",
    "text:toc-mark-start",
    "text:toc-mark-end",
    "text:user-index-mark-start",
    "text:user-index-mark-end",
    "text:alphabetical-index-mark-start",
    "text:alphabetical-index-mark-end",
};

bool isParagraph(std::string_view name) {
    return name == "text:p" || name == "text:h";
}

bool standsInLine(const pugi::xml_node& drawing) {
    return std::string_view(drawing.attribute("text:anchor-type").value()) == "as-char";
}

/// A comment on a stretch of text has its character at the stretch's end.
bool hasEnd(const pugi::xml_node& comment) {
    const std::string_view name = comment.attribute("office:name").value();
    if (name.empty()) return false;
    return static_cast<bool>(comment.root().find_node([&](const pugi::xml_node& node) {
        return std::string_view(node.name()) == "office:annotation-end" &&
               node.attribute("office:name").value() == name;
    }));
}

}  // namespace

void StoryReader::read(const pugi::xml_node& root) {
    readBlocks(root);
    story_.map().setLength({std::max<std::int64_t>(1, at_.value)});
    widenOverTables();
}

void StoryReader::readBlocks(const pugi::xml_node& parent) {
    for (const pugi::xml_node block : parent.children())
        readBlock(block);
}

void StoryReader::readBlock(const pugi::xml_node& block) {
    const std::string_view name = block.name();
    if (isParagraph(name)) {
        readInline(block);
        skip(1);
        endsWithParagraph_ = true;
    } else if (name == "table:table") {
        readTable(block);
        endsWithParagraph_ = false;
    } else if (isAmong(kGroups, name)) {
        readBlocks(block);
    } else if (name.starts_with("draw:")) {
        readDrawing(block);
    }
}

void StoryReader::readTable(const pugi::xml_node& element) {
    const auto table = std::make_shared<MappedTable>();
    table->name = element.attribute("table:name").value();
    table->start = at_;
    story_.map().addTable(table);
    for (const std::vector<StoredCell>& row : storedRows(element)) {
        table->rows.emplace_back();
        for (const StoredCell& cell : row) {
            table->rows.back().push_back({cell.name, {}, cell.columns, cell.rows});
            const TextKey key{table, table->lastCell()};
            const CharacterPosition start = at_;
            table->at(key.cell).length = cell.rows == 0 ? coveredLength(key) : readCell(cell.element);
            at_ = start + table->at(key.cell).length + kMark;
        }
        skip(1);
    }
}

CharacterCount StoryReader::coveredLength(const TextKey& key) const {
    return {story_.textOf(key)->getString().getLength()};
}

CharacterCount StoryReader::readCell(const pugi::xml_node& element) {
    const CharacterPosition start = at_;
    endsWithParagraph_ = false;
    readBlocks(element);
    return at_ - start - CharacterCount{endsWithParagraph_ ? 1 : 0};
}

void StoryReader::readInline(const pugi::xml_node& parent) {
    for (const pugi::xml_node child : parent.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            readText(child.value());
        } else if (child.type() == pugi::node_element) {
            readElement(child, child.name());
        }
    }
}

void StoryReader::readElement(const pugi::xml_node& element, std::string_view name) {
    if (isAmong(kSpans, name)) return readInline(element);
    if (name == "text:s") return skip(element.attribute("text:c").as_int(1));
    if (isAmong(kCharacters, name)) return skip(1);
    if (isAmong(kNothing, name) || readMark(element, name) || readFieldMark(element, name)) return;
    if (isAmong(kMetas, name) || isBracket(element)) {
        const CharacterPosition start = at_;
        skip(1);
        readInline(element);
        skip(isBracket(element) ? 1 : 0);
        if (isInput(element)) addObject(storedField(element), start);
    } else if (name == "text:note") {
        skip(1);
        onStory_(element);
    } else if (name == "office:annotation") {
        skip(hasEnd(element) ? 0 : 1);
    } else if (name == "office:annotation-end") {
        skip(1);
    } else if (name.starts_with("draw:") || name.starts_with("dr3d:")) {
        readDrawing(element);
    } else if (name.starts_with("text:")) {
        const CharacterPosition start = at_;
        skip(1);
        addObject(storedField(element), start);
    }
}

bool StoryReader::readMark(const pugi::xml_node& element, std::string_view name) {
    if (!name.starts_with("text:bookmark") || name == "text:bookmark-ref") return false;
    const std::string mark = element.attribute("text:name").value();
    if (name == "text:bookmark-start") {
        openMarks_[mark] = at_;
    } else if (name == "text:bookmark-end") {
        if (const auto open = openMarks_.find(mark); open != openMarks_.end())
            addMark(mark, {open->second, at_});
    } else {
        addMark(mark, {at_, at_});
    }
    return true;
}

/// A field that Writer does not know takes three characters beside its result.
bool StoryReader::readFieldMark(const pugi::xml_node& element, std::string_view name) {
    if (!name.starts_with("field:fieldmark")) return false;
    if (name == "field:fieldmark-start") openFields_.emplace_back(storedField(element), at_);
    skip(1);
    if (name == "field:fieldmark-separator" && !openFields_.empty()) {
        auto& [field, start] = openFields_.back();
        field.codeLength = at_ - start;
    }
    if (name == "field:fieldmark-end" && !openFields_.empty()) {
        const auto [field, start] = openFields_.back();
        openFields_.pop_back();
        addObject(field, start);
    }
    return true;
}

void StoryReader::readDrawing(const pugi::xml_node& element) {
    const CharacterPosition start = at_;
    const bool isInLine = standsInLine(element);
    if (isInLine) skip(1);
    TextObject drawing;
    drawing.kind = isInLine ? ObjectKind::InlineShape : ObjectKind::FloatingShape;
    addObject(drawing, start);
    onStory_(element);
}

void StoryReader::readText(std::string_view text) {
    while (!text.empty()) {
        const bool isPair = takeCodePoint(text) > 0xFFFF;
        if (isPair) story_.map().addPair(at_);
        skip(isPair ? kPairLength : 1);
    }
}

void StoryReader::addObject(TextObject object, CharacterPosition start) {
    object.place = {start, at_};
    story_.map().addObject(std::make_shared<TextObject>(object));
}

void StoryReader::addMark(const std::string& name, Stretch place) {
    const auto mark = std::make_shared<MarkRecord>();
    mark->name = name;
    mark->story = &story_;
    mark->place = place;
    mark->inWriter = place;
    story_.map().addMark(mark);
    marks_.list(mark);
}

/// Over a whole table Writer has a bookmark from its first cell to the end of its last.
void StoryReader::widenOverTables() {
    const StoryMap& map = story_.map();
    for (const MarkPtr& mark : map.marks()) {
        for (const TablePtr& table : map.tables()) {
            const Stretch whole{table->start, table->end()};
            const bool hasCells = table->rows.size() > 1 || table->rows.front().size() > 1;
            if (table->start == mark->place.start && hasCells && map.inWriter(whole) == mark->place)
                mark->place = whole;
        }
    }
}

}  // namespace mergeloom::libreoffice
