#include "office/embedded/letters/PartPreparation.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "office/embedded/letters/LabelSheet.h"
#include "office/embedded/letters/ParagraphXml.h"
#include "office/embedded/letters/PictureReplacement.h"
#include "office/embedded/letters/Token.h"
#include "office/embedded/text/Story.h"
#include "office/embedded/text/TableEditor.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

using opc::WordTag;

/// Returns true if a text is a single token. Marked places may be in the code of a field.
std::optional<Token> valueTokenOf(pugi::xml_node text) {
    const std::optional<Token> token = Token::of(text.text().get());
    return token && token->kind == TokenKind::Value ? token : std::nullopt;
}

/// Returns the block-level elements of a cell.
std::vector<pugi::xml_node> contentOfCell(pugi::xml_node cell, const opc::WordNames& names) {
    const std::string properties = names.element("tcPr");
    std::vector<pugi::xml_node> content;
    for (const pugi::xml_node child : cell.children()) {
        if (child.name() != properties) content.push_back(child);
    }
    return content;
}

}  // namespace

std::string PartPreparation::xmlOf(pugi::xml_node node) {
    std::string xml;
    opc::StringWriter writer(xml);
    node.print(writer, "", pugi::format_raw | pugi::format_no_declaration);
    return xml;
}

PartPreparation::PartPreparation(CuttingContext& context, opc::XmlPart& part, PartKind kind)
    : context_(context),
      part_(part),
      names_(part.root()),
      kind_(kind),
      formats_(context.marked.places.size()),
      optionalKeepers_(context.marked.optionals.size()),
      optionalParagraphs_(context.marked.optionals.size()) {
    for (std::size_t number = 0; number < context.marked.places.size(); ++number)
        placesByName_[context.marked.places[number].name] = number;
}

void PartPreparation::prepare() {
    collect(part_.root());
    findTables();
    if (context_.labelsPerSheet > 0 && kind_ == PartKind::Body) findLabels();
    markPictures();
    markOptionals();
    markRepeated();
    markValues();
    copyLabels();
    if (context_.settings.use == letters::LetterUse::OneForAll) markSections();
}

void PartPreparation::collect(pugi::xml_node node) {
    const WordTag tag = names_.tagOf(node);
    if (tag == WordTag::BookmarkStart || tag == WordTag::BookmarkEnd) collectBookmark(node, tag);
    const bool isText = tag == WordTag::TextElement || tag == WordTag::InstructionText;
    if (isText && valueTokenOf(node)) texts_.push_back(node);
    for (const pugi::xml_node child : node.children())
        collect(child);
}

void PartPreparation::collectBookmark(pugi::xml_node node, WordTag tag) {
    const std::string id = names_.value(node, "id");
    if (tag == WordTag::BookmarkStart) {
        bookmarksById_[id] = bookmarks_.size();
        bookmarks_.push_back({names_.value(node, "name"), node, {}});
        return;
    }
    const auto found = bookmarksById_.find(id);
    if (found == bookmarksById_.end()) return;
    bookmarks_[found->second].end = node;
    bookmarksById_.erase(found);
}

void PartPreparation::markValues() {
    for (const pugi::xml_node text : texts_)
        markValue(text, valueTokenOf(text)->number);
}

void PartPreparation::markValue(pugi::xml_node text, std::size_t number) {
    const pugi::xml_node run = text.parent();
    const pugi::xml_node paragraph = names_.ancestor(text, WordTag::Paragraph);
    PlaceFormat& format = formats_.at(number);
    format.prefix = names_.element("");
    format.attributePrefix = names_.attribute("");
    format.isWholeRun = names_.tagOf(text) == WordTag::TextElement;
    format.canSplit = run.parent() == paragraph && !context_.marked.places[number].isReference;
    for (const pugi::xml_node property : names_.child(run, WordTag::RunProperties).children())
        format.runProperties.emplace_back(opc::localName(property), xmlOf(property));
    if (const pugi::xml_node properties = names_.child(paragraph, WordTag::ParagraphProperties)) {
        format.paragraphProperties = addedParagraphProperties(properties, names_);
        const pugi::xml_node section = names_.child(properties, WordTag::SectionProperties);
        const bool isMarked = section && section.previous_sibling().type() == pugi::node_pcdata;
        if (section && !isMarked) markParagraphSection(section);
    }
    if (!format.isWholeRun) return;
    insertBefore(text, {TokenKind::Value, number});
    part_.detach(text);
}

void PartPreparation::findTables() {
    RowPatternFinder finder(part_.root(), context_.marked, bookmarks_);
    for (const pugi::xml_node text : texts_) {
        const std::size_t number = valueTokenOf(text)->number;
        if (!context_.marked.places[number].isReference) finder.addPlace(text, number);
    }
    for (const PartBookmark& bookmark : bookmarks_) {
        const auto place = placesByName_.find(bookmark.name);
        if (place != placesByName_.end()) finder.addPlace(bookmark.start, place->second);
    }
    const bool isSheet = context_.labelsPerSheet > 0 && kind_ == PartKind::Body;
    patterns_ = finder.find(isSheet ? UnmarkedTables::Ignore : UnmarkedTables::Repeat);
    for (const RowPattern& pattern : patterns_)
        markRows(pattern);
    context_.refusals.insert(context_.refusals.end(), finder.refusals().begin(), finder.refusals().end());
    context_.tablesWithoutRows.insert(finder.tablesWithoutRows().begin(), finder.tablesWithoutRows().end());
}

void PartPreparation::markRows(const RowPattern& pattern) {
    const auto number = static_cast<std::size_t>(&pattern - patterns_.data());
    for (const pugi::xml_node row : pattern.rows)
        repeatedNodes_.insert(row.hash_value());
    if (context_.settings.use == letters::LetterUse::OneEach) keepXml(patterns_[number]);
    insertBefore(pattern.rows.front(), {TokenKind::RowsStart, number});
    insertAfter(pattern.rows.back(), {TokenKind::RowsEnd, number});
    if (!pattern.markedTable) return;
    insertBefore(pattern.markedTable, {TokenKind::TableStart, number});
    insertAfter(pattern.tableEnd, {TokenKind::TableEnd, number});
    if (pattern.path.empty()) context_.listsRecords = true;
}

/// Keeps what a letter without records needs to be filled again.
void PartPreparation::keepXml(RowPattern& pattern) const {
    for (const pugi::xml_node row : pattern.rows)
        pattern.rowsXml += templateXmlOf(row);
    for (const std::string& mark : marksAcross(pattern.rows.front(), pattern.rows.back())) {
        pattern.marksAcross += mark;
        pattern.rowsXml = replaceAll(pattern.rowsXml, mark, "");
    }
    if (!pattern.markedTable) return;
    pattern.tableXml = templateXmlOf(pattern.markedTable);
    if (pattern.tableEnd != pattern.markedTable) pattern.tableXml += xmlOf(pattern.tableEnd);
}

/// Returns the XML of an element of the template: its places show their names, and it has no other tokens.
std::string PartPreparation::templateXmlOf(pugi::xml_node element) const {
    const std::string whole = xmlOf(element);
    std::string_view rest = whole;
    std::string_view before;
    std::string xml;
    for (;;) {
        const std::optional<Token> token = Token::takeFirst(rest, before);
        xml += before;
        if (!token) return xml;
        if (token->kind == TokenKind::Value) xml += context_.marked.places.at(token->number).name;
    }
}

/// Returns the marks in rows of the bookmarks that have the other mark outside of them.
std::vector<std::string> PartPreparation::marksAcross(pugi::xml_node first, pugi::xml_node last) const {
    std::vector<std::string> marks;
    for (const PartBookmark& bookmark : bookmarks_) {
        if (!bookmark.end) continue;
        const bool startsInside = isInSiblings(bookmark.start, first, last);
        const bool endsInside = isInSiblings(bookmark.end, first, last);
        if (startsInside != endsInside) marks.push_back(xmlOf(startsInside ? bookmark.start : bookmark.end));
    }
    return marks;
}

void PartPreparation::markPictures() {
    for (const PartBookmark& bookmark : bookmarks_) {
        const auto place = placesByName_.find(bookmark.name);
        const bool isPicture =
            place != placesByName_.end() && context_.marked.places[place->second].isPicture;
        if (isPicture) markPicture(bookmark, place->second);
    }
}

void PartPreparation::markPicture(const PartBookmark& bookmark, std::size_t number) {
    const pugi::xml_node paragraph = names_.ancestor(bookmark.start, WordTag::Paragraph);
    bool isAfterStart = false;
    const pugi::xml_node drawing = paragraph.find_node([&](pugi::xml_node node) {
        isAfterStart = isAfterStart || node == bookmark.start;
        return isAfterStart && names_.tagOf(node) == WordTag::Drawing;
    });
    if (!drawing || !showsPicture(drawing)) {
        context_.refusals.push_back("The picture at \"" + bookmark.name + "\" cannot be replaced.");
        return;
    }
    const std::string& image = context_.marked.places[number].source.image;
    if (!image.empty()) showImage(drawing, image);
    insertBefore(drawing, {TokenKind::PictureStart, number});
    insertAfter(drawing, {TokenKind::PictureEnd, number});
}

/// Inserts the picture of the structure, unless the template already shows it.
void PartPreparation::showImage(pugi::xml_node drawing, const std::string& image) {
    std::string bytes = context_.files.read(image);
    const opc::PictureFile file = opc::PictureFile::read(bytes, image);
    const std::string id = context_.pictures.add(part_.partName(), std::move(bytes), file);
    if (id != pictureLinkOf(drawing)) replacePicture(drawing, id, file, fileNameOnly(image));
}

void PartPreparation::findLabels() {
    if (texts_.empty()) return;
    labels_ = labelCells(names_.ancestor(texts_.front(), WordTag::CellElement), names_);
    if (!labels_.empty()) repeatedNodes_.insert(labels_.front().hash_value());
}

/// Copies the content of the first label, which already contains tokens, to the other labels.
void PartPreparation::copyLabels() {
    std::vector<pugi::xml_node> content;
    if (!labels_.empty()) content = contentOfCell(labels_.front(), names_);
    for (std::size_t number = 0; number < labels_.size(); ++number) {
        const std::vector<pugi::xml_node> old = contentOfCell(labels_[number], names_);
        std::string xml;
        for (const pugi::xml_node node : old)
            xml += xmlOf(node);
        emptyLabels_.push_back(number == 0 ? "" : xml);
        insertBefore(old.front(), {TokenKind::LabelStart, number});
        insertAfter(old.back(), {TokenKind::LabelEnd, number});
        if (number == 0) continue;
        for (const pugi::xml_node node : content)
            labels_[number].insert_copy_before(node, old.front());
        for (const pugi::xml_node node : old)
            part_.detach(node);
    }
}

void PartPreparation::markOptionals() {
    for (std::size_t number = 0; number < context_.marked.optionals.size(); ++number) {
        const auto found =
            std::ranges::find(bookmarks_, context_.marked.optionals[number], &PartBookmark::name);
        if (found == bookmarks_.end() || !found->end) continue;
        const pugi::xml_node first = found->start.parent();
        const pugi::xml_node last = found->end.parent();
        // Only then the content between the marks can be removed without splitting an element.
        const bool areBeside =
            first == last || (names_.tagOf(first) == WordTag::Paragraph &&
                              names_.tagOf(last) == WordTag::Paragraph && first.parent() == last.parent());
        if (!areBeside) continue;
        optionalKeepers_[number] = keeperXml(found->start);
        const std::string second = propertiesXml(last);
        if (first != last && second != propertiesXml(first)) optionalParagraphs_[number] = second;
        insertAfter(found->start, {TokenKind::OptionalStart, number});
        insertBefore(found->end, {TokenKind::OptionalEnd, number});
    }
}

/// Returns the properties of a paragraph, as an empty element if there are none.
std::string PartPreparation::propertiesXml(pugi::xml_node paragraph) const {
    const pugi::xml_node properties = names_.child(paragraph, WordTag::ParagraphProperties);
    return properties ? xmlOf(properties) : "<" + names_.element("pPr") + "/>";
}

/// Returns an empty run with the formatting of the run after a mark.
std::string PartPreparation::keeperXml(pugi::xml_node mark) const {
    pugi::xml_node run = mark.next_sibling();
    while (run && names_.tagOf(run) != WordTag::Run)
        run = run.next_sibling();
    const pugi::xml_node properties = names_.child(run, WordTag::RunProperties);
    const std::string name = names_.element("r");
    return "<" + name + ">" + (properties ? xmlOf(properties) : "") + "<" + names_.element("t") + "/></" +
           name + ">";
}

void PartPreparation::markId(pugi::xml_attribute attribute, TokenKind kind) {
    ids_.emplace_back(attribute.value());
    attribute.set_value(Token{kind, ids_.size() - 1}.text().c_str());
}

void PartPreparation::insertBefore(pugi::xml_node node, const Token& token) {
    node.parent().insert_child_before(pugi::node_pcdata, node).set_value(token.text().c_str());
}

void PartPreparation::insertAfter(pugi::xml_node node, const Token& token) {
    node.parent().insert_child_after(pugi::node_pcdata, node).set_value(token.text().c_str());
}

}  // namespace mergeloom::embedded
