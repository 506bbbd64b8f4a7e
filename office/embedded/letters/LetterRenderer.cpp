#include "office/embedded/letters/LetterRenderer.h"

#include "base/AutomationError.h"
#include "office/embedded/letters/FilledLetter.h"
#include "office/embedded/letters/OmittedContent.h"
#include "office/embedded/letters/PictureReplacement.h"
#include "office/embedded/letters/RichTextXml.h"
#include "office/embedded/letters/ValueXml.h"
#include "office/embedded/parts/PictureTurn.h"
#include "office/embedded/parts/RichText.h"
#include "office/embedded/word/InlinePicture.h"
#include "office/model/letters/RecordMark.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace mergeloom::embedded {

namespace {

bool hasNothing(const RecordControl* control, letters::ValueKind kind) {
    if (control == nullptr) return true;
    if (kind == letters::ValueKind::Bound) return control->boundValue.empty();
    return control->shownText().empty() && control->richText.empty() && control->image.empty();
}

const Record* followPath(const Record* record, const Piece& piece, std::vector<std::size_t>& hints,
                         std::size_t steps) {
    for (std::size_t step = 0; step < steps && record != nullptr; ++step) {
        const RecordControl* const control = record->find(piece.source.path[step], hints[step]);
        record = control == nullptr || control->records.empty() ? nullptr : &control->records.front();
    }
    return record;
}

}  // namespace

void LetterRenderer::beginLetter() {
    freshIds_ = ids_;
    addedRows_ = 0;
    markedRecords_ = 0;
}

void LetterRenderer::render(CutPart& part, Pieces& pieces, std::span<const Record> records,
                            std::string& xml) {
    part_ = &part;
    xml_ = &xml;
    sectionStart_ = sectionEnd_ = 0;
    records_ = records;
    levels_.assign(1, &records.front());
    append(pieces);
}

std::string LetterRenderer::rendered(Pieces& pieces) {
    std::string xml;
    std::string* const letter = std::exchange(xml_, &xml);
    append(pieces);
    xml_ = letter;
    return xml;
}

void LetterRenderer::append(Pieces& pieces) {
    for (Piece& piece : pieces) {
        switch (piece.kind) {
            case Piece::Kind::Fixed:
                xml_->append(piece.xml);
                break;
            case Piece::Kind::Value:
                appendValue(piece);
                break;
            case Piece::Kind::Picture:
                appendPicture(piece);
                break;
            case Piece::Kind::Rows:
                appendRows(piece);
                break;
            case Piece::Kind::Table:
                appendTable(piece);
                break;
            case Piece::Kind::Optional:
                appendOptional(piece);
                break;
            case Piece::Kind::Once:
                if (isFirst_) xml_->append(piece.xml);
                break;
            case Piece::Kind::Id:
                xml_->append(isFirst_ ? piece.xml : std::to_string(freshIds_.nextDrawing++));
                break;
            case Piece::Kind::Section:
                append(piece.inside);
                break;
            case Piece::Kind::ParagraphSection:
                appendParagraphSection(piece);
                break;
            case Piece::Kind::SectionBreak:
                if (!isLast_) append(piece.inside);
                break;
            case Piece::Kind::Label:
                appendLabel(piece);
                break;
            case Piece::Kind::NoteId:
                xml_->append(std::to_string(std::atoll(piece.xml.c_str()) +
                                            section_ * std::max(kNotesOfSection, ids_.nextBookmark)));
                break;
            case Piece::Kind::AnnotationId:
                xml_->append(isFirst_ ? piece.xml : std::to_string(freshIds_.nextBookmark++));
                break;
            case Piece::Kind::ShapeId:
                xml_->append(piece.xml);
                if (!isFirst_) xml_->append("_" + std::to_string(freshIds_.nextDrawing++));
                break;
            case Piece::Kind::ListId:
                xml_->append(lists_.idIn(section_, piece.xml));
                break;
            case Piece::Kind::RecordMark:
                appendRecordMark();
                break;
            case Piece::Kind::PartLink:
                xml_->append(linkOf(piece.xml));
                break;
            default:
                break;
        }
    }
}

/// Marks the start of a record, also if its first row repeats, only once.
void LetterRenderer::appendRecordMark() {
    if (markedRecords_ > section_) return;
    markedRecords_ = section_ + 1;
    appendEnd(appendAddedStart(letters::kRecordMarkName, static_cast<std::size_t>(section_)));
}

void LetterRenderer::appendLabel(Piece& piece) {
    if (piece.number >= records_.size()) {
        xml_->append(piece.xml);
        return;
    }
    const bool wasFirst = isFirst_;
    isFirst_ = wasFirst && piece.number == 0;
    levels_.front() = &records_[piece.number];
    const bool isAdded = piece.number > 0 && settings_.use == letters::LetterUse::OneEach;
    if (isAdded) appendEnd(appendAddedStart(kFilledLabelName, piece.number));
    append(piece.inside);
    levels_.front() = &records_.front();
    isFirst_ = wasFirst;
}

void LetterRenderer::appendOptional(Piece& piece) {
    const bool isShown = std::ranges::none_of(piece.beside, [this](Piece& value) { return isEmpty(value); });
    if (isShown) return append(piece.inside);
    if (settings_.use == letters::LetterUse::OneEach && isFirst_) xml_->append(piece.xml);
    appendOmitted(piece);
}

/// Keeps the content of a piece that the letter leaves out, and marks its position.
void LetterRenderer::appendOmitted(const Piece& piece) {
    const bool isKept = settings_.use == letters::LetterUse::OneEach && isFirst_ && !piece.omitted.empty();
    if (isKept) appendEnd(appendAddedStart(kOmittedName, parts_.omit(piece.omitted)));
}

const std::string& LetterRenderer::linkOf(const std::string& id) const {
    const auto found = links_.find(id);
    return found == links_.end() ? id : found->second;
}

void LetterRenderer::beginSection(std::int64_t number, IsLastSection isLast) {
    section_ = number;
    isFirst_ = number == 0;
    isLast_ = isLast == IsLastSection::Yes;
    links_.clear();
}

const RecordControl* LetterRenderer::controlOf(Piece& piece) const {
    const std::size_t last = piece.source.path.size() - 1;
    const Record* const record = followPath(levels_[piece.source.level], piece, piece.hints, last);
    return record == nullptr ? nullptr : record->find(piece.source.path[last], piece.hints[last]);
}

std::span<const Record> LetterRenderer::recordsOf(Piece& piece) const {
    if (piece.source.path.empty()) return records_;
    const RecordControl* const control = controlOf(piece);
    return control == nullptr ? std::span<const Record>() : control->records;
}

bool LetterRenderer::isEmpty(Piece& piece) const {
    return hasNothing(controlOf(piece), marked_.places[piece.number].source.value);
}

bool LetterRenderer::keepsTable(Piece& piece) const {
    return settings_.emptyTables == letters::EmptyTables::KeepCaptions || !recordsOf(piece).empty();
}

void LetterRenderer::appendValue(Piece& piece) {
    static const std::string kNothing;
    const RecordControl* const control = controlOf(piece);
    const letters::ValueKind kind = marked_.places[piece.number].source.value;
    PlaceFormat& format = part_->formats[piece.number];
    const std::string& bound = control == nullptr ? kNothing : control->boundValue;
    const std::string& shown = control == nullptr ? kNothing : control->shownText();
    const std::string& text = kind == letters::ValueKind::Bound ? bound : shown;
    const bool isRich =
        kind == letters::ValueKind::Display && control != nullptr && !control->richText.empty();
    const bool isShownAsPicture = format.isWholeRun && kind == letters::ValueKind::Display &&
                                  control != nullptr && !control->image.empty() && appendNewPicture(piece);
    if (isShownAsPicture) return;
    if (!format.isWholeRun) {
        appendEscaped(*xml_, inFieldCode(text));
    } else if (isRich) {
        appendRich(*control, format);
    } else {
        appendRunContent(*xml_, text, format.prefix);
    }
}

void LetterRenderer::appendParagraphSection(Piece& piece) {
    sectionStart_ = xml_->size();
    append(piece.inside);
    sectionEnd_ = xml_->size();
}

/// Removes the properties of the section that the open paragraph ends, and returns them.
std::string LetterRenderer::takeParagraphSection() {
    const bool isEarlier = sectionEnd_ > xml_->size() ||
                           xml_->find("</" + part_->prefix + "p>", sectionEnd_) != std::string::npos;
    if (isEarlier || sectionStart_ == sectionEnd_) return {};
    std::string section = xml_->substr(sectionStart_, sectionEnd_ - sectionStart_);
    xml_->erase(sectionStart_, section.size());
    sectionEnd_ = sectionStart_;
    return section;
}

void LetterRenderer::appendParagraphs(const std::vector<RichParagraph>& paragraphs, PlaceFormat& format) {
    const bool isSplit = format.canSplit && paragraphs.size() > 1;
    AddedParagraphs added;
    if (isSplit) added = {rendered(format.paragraphPieces), takeParagraphSection()};
    const std::string& section = added.section;
    const std::size_t end = appendRichText(*xml_, paragraphs, format, added);
    if (section.empty()) return;
    sectionEnd_ = end;
    sectionStart_ = end - section.size();
}

void LetterRenderer::appendRich(const RecordControl& control, PlaceFormat& format) {
    const auto paragraphs = readRichText(control.richText);
    if (paragraphs) {
        appendParagraphs(*paragraphs, format);
    } else {
        remarks_.insert("The rich text of " + control.name + " is broken; its plain text was taken.");
        const std::string& shown = control.shownText();
        appendRunContent(*xml_, shown.empty() ? withoutTags(control.richText) : shown, format.prefix);
    }
}

/// Appends the picture of a record at a place of text. Returns false if there is none.
bool LetterRenderer::appendNewPicture(Piece& piece) {
    const AddedPicture* const picture = pictureOf(piece);
    if (picture == nullptr) return false;
    const bool isSideways = pictureTurn(picture->file.orientation()).isSideways();
    InlinePicture shown{.relationshipId = parts_.link(part_->name, *picture),
                        .name = picture->name,
                        .drawingId = freshIds_.nextDrawing++,
                        .width = isSideways ? picture->file.naturalHeight() : picture->file.naturalWidth(),
                        .height = picture->file.naturalHeight()};
    fitInto(marked_.places[piece.number].textWidth, shown);
    // The empty run preserves the formatting of the place for the next filling.
    appendRunContent(*xml_, "", part_->prefix);
    *xml_ += "</" + part_->prefix + "r><" + part_->prefix + "r>";
    pugi::xml_document document;
    document.load_string(drawingXml(shown, part_->names).c_str());
    const pugi::xml_node drawing = document.document_element();
    replacePicture(drawing, shown.relationshipId, picture->file, picture->name);
    opc::StringWriter writer(*xml_);
    drawing.print(writer, "", pugi::format_raw | pugi::format_no_declaration);
    return true;
}

void LetterRenderer::appendPicture(Piece& piece) {
    const AddedPicture* const picture = pictureOf(piece);
    if (picture == nullptr) return append(piece.inside);
    const std::string xml = rendered(piece.inside);
    pugi::xml_document document;
    document.load_buffer(xml.data(), xml.size(), pugi::parse_full | pugi::parse_ws_pcdata);
    const pugi::xml_node drawing = document.document_element();
    replacePicture(drawing, parts_.link(part_->name, *picture), picture->file, picture->name);
    opc::StringWriter writer(*xml_);
    drawing.print(writer, "", pugi::format_raw | pugi::format_no_declaration);
}

const AddedPicture* LetterRenderer::pictureOf(Piece& piece) {
    const RecordControl* const control = controlOf(piece);
    if (control == nullptr || control->image.empty()) return nullptr;
    try {
        const AddedPicture* const picture = parts_.add(control->image);
        if (picture == nullptr) remarks_.insert("There is no picture '" + control->image + "'.");
        return picture;
    } catch (const AutomationError& error) {
        // One bad picture must not end a batch, so the picture of the template is kept.
        remarks_.insert(error.description());
        return nullptr;
    }
}

void LetterRenderer::appendTable(Piece& piece) {
    if (!keepsTable(piece)) return appendOmitted(piece);
    const std::size_t start = xml_->size();
    const std::size_t omitted = parts_.omittedCount();
    append(piece.inside);
    // A table without rows is not allowed (ECMA-376 Part 1, 17.4.37).
    const std::string row = "<" + part_->prefix + "tr";
    const bool hasRows = xml_->find(row + ">", start) != std::string::npos ||
                         xml_->find(row + " ", start) != std::string::npos;
    if (hasRows) return;
    xml_->resize(start);
    parts_.keepOmitted(omitted);
    appendOmitted(piece);
}

void LetterRenderer::appendRows(Piece& piece) {
    static const Record kNoValues;
    std::span<const Record> records = recordsOf(piece);
    const bool isEmpty = records.empty();
    if (isEmpty && piece.withoutRecords == WithoutRecords::EmptyRows) records = {&kNoValues, 1};
    if (records.empty()) {
        if (isFirst_) xml_->append(piece.xml);
        return appendOmitted(piece);
    }
    const bool wasFirst = isFirst_;
    const bool marksRows = wasFirst && records.size() > 1 && settings_.use == letters::LetterUse::OneEach;
    std::string id;
    for (std::size_t number = 0; number < records.size(); ++number) {
        if (number == 1 && marksRows) id = appendAddedStart(kAddedRowsName, ++addedRows_);
        isFirst_ = wasFirst && number == 0;
        levels_.push_back(&records[number]);
        append(piece.inside);
        levels_.pop_back();
    }
    isFirst_ = wasFirst;
    if (marksRows) appendEnd(id);
}

std::string LetterRenderer::appendAddedStart(const char* name, std::size_t number) {
    const std::string id = std::to_string(freshIds_.nextBookmark++);
    *xml_ += "<" + part_->prefix + "bookmarkStart " + part_->attributePrefix + "id=\"" + id + "\" " +
             part_->attributePrefix + "name=\"" + name + std::to_string(number) + "\"/>";
    return id;
}

void LetterRenderer::appendEnd(const std::string& id) {
    *xml_ += "<" + part_->prefix + "bookmarkEnd " + part_->attributePrefix + "id=\"" + id + "\"/>";
}

}  // namespace mergeloom::embedded
