#include "office/embedded/letters/PartCutter.h"

#include "base/Text.h"
#include "office/embedded/letters/OptionalText.h"
#include "office/embedded/letters/PartPreparation.h"
#include "office/embedded/letters/Token.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

using letters::ControlPath;

/// Cuts the XML of a part at its tokens.
class Cutter {
  public:
    Cutter(CuttingContext& context, const PartPreparation& prepared)
        : context_(context), marked_(context.marked), prepared_(prepared) {}

    Pieces cut(std::string_view xml) {
        open_.push_back({});
        levels_.push_back({});
        take(xml);
        return std::move(open_.front().inside);
    }

  private:
    void add(Piece piece) { open_.back().inside.push_back(std::move(piece)); }

    void take(std::string_view xml) {
        std::string_view before;
        std::optional<Token> token;
        do {
            token = Token::takeFirst(xml, before);
            if (!before.empty()) add({.kind = Piece::Kind::Fixed, .xml = replaceAll(before, kKeptPlace, "")});
            if (token) take(*token);
        } while (token);
    }

    void take(const Token& token) {
        switch (token.kind) {
            case TokenKind::Value:
                return add(valuePiece(token.number));
            case TokenKind::RowsStart:
                open(Piece::Kind::Rows, token.number);
                open_.back().xml = prepared_.patterns().at(token.number).marksAcross;
                open_.back().omitted = prepared_.patterns().at(token.number).rowsXml;
                open_.back().withoutRecords = prepared_.patterns().at(token.number).withoutRecords;
                return levels_.push_back(prepared_.patterns().at(token.number).path);
            case TokenKind::TableStart:
                open(Piece::Kind::Table, token.number);
                open_.back().omitted = prepared_.patterns().at(token.number).tableXml;
                return;
            case TokenKind::OptionalStart:
                return open_.push_back({.kind = Piece::Kind::Optional,
                                        .xml = prepared_.optionalKeepers().at(token.number),
                                        .omitted = prepared_.optionalParagraphs().at(token.number),
                                        .number = token.number});
            case TokenKind::SectionStart:
                return open_.push_back({.kind = Piece::Kind::Section});
            case TokenKind::ParagraphSectionStart:
                return open_.push_back({.kind = Piece::Kind::ParagraphSection});
            case TokenKind::PictureStart:
                open_.push_back(valuePiece(token.number));
                open_.back().kind = Piece::Kind::Picture;
                return;
            case TokenKind::LabelStart:
                return open_.push_back({.kind = Piece::Kind::Label,
                                        .xml = prepared_.emptyLabels().at(token.number),
                                        .number = token.number});
            case TokenKind::RowsEnd:
                levels_.pop_back();
                return close();
            case TokenKind::TableEnd:
            case TokenKind::OptionalEnd:
            case TokenKind::PictureEnd:
            case TokenKind::LabelEnd:
            case TokenKind::SectionEnd:
            case TokenKind::ParagraphSectionEnd:
                return close();
            case TokenKind::Once:
                return add({.kind = Piece::Kind::Once, .xml = prepared_.onceXml().at(token.number)});
            case TokenKind::Id:
                return add({.kind = Piece::Kind::Id, .xml = prepared_.ids().at(token.number)});
            case TokenKind::SectionBreak:
                open_.push_back({.kind = Piece::Kind::SectionBreak});
                take(prepared_.sectionBreak());
                return close();
            case TokenKind::NoteId:
                return add({.kind = Piece::Kind::NoteId, .xml = prepared_.ids().at(token.number)});
            case TokenKind::AnnotationId:
                return add({.kind = Piece::Kind::AnnotationId, .xml = prepared_.ids().at(token.number)});
            case TokenKind::ShapeId:
                return add({.kind = Piece::Kind::ShapeId, .xml = prepared_.ids().at(token.number)});
            case TokenKind::ListId:
                return add({.kind = Piece::Kind::ListId, .xml = prepared_.ids().at(token.number)});
            case TokenKind::RecordMark:
                return add({.kind = Piece::Kind::RecordMark});
            case TokenKind::PartLink:
                return add({.kind = Piece::Kind::PartLink, .xml = prepared_.ids().at(token.number)});
            default:
                return;
        }
    }

    void open(Piece::Kind kind, std::size_t pattern) {
        const ControlPath& path = prepared_.patterns().at(pattern).path;
        Piece piece{.kind = kind, .number = pattern, .source = sourceOf(path)};
        if (kind == Piece::Kind::Rows) noteFirstRecords(path, piece.source);
        piece.hints.resize(piece.source.path.size());
        open_.push_back(std::move(piece));
    }
    void close() {
        Piece piece = std::move(open_.back());
        open_.pop_back();
        add(std::move(piece));
    }

    Piece valuePiece(std::size_t number) {
        const ControlPath& path = marked_.places.at(number).source.path;
        Piece piece{.kind = Piece::Kind::Value, .number = number, .source = sourceOf(path)};
        noteFirstRecords(path, piece.source);
        piece.hints.resize(piece.source.path.size());
        return piece;
    }

    /// Notes the subforms on the way to a control of which only the first record is taken.
    void noteFirstRecords(const ControlPath& path, const ValuePath& source) {
        const auto around = static_cast<std::ptrdiff_t>(path.size() - source.path.size());
        for (std::ptrdiff_t length = around + 1; length < std::ssize(path); ++length)
            context_.firstRecordsOnly.emplace(path.begin(), path.begin() + length);
    }

    /// Returns the path from the innermost enclosing record to a control.
    [[nodiscard]] ValuePath sourceOf(const ControlPath& path) const {
        for (std::size_t level = levels_.size(); level-- > 1;) {
            const ControlPath& around = levels_[level];
            const bool isBelow =
                around.size() < path.size() && std::equal(around.begin(), around.end(), path.begin());
            if (!isBelow) continue;
            return {level,
                    ControlPath(path.begin() + static_cast<std::ptrdiff_t>(around.size()), path.end())};
        }
        return {0, path};
    }

    CuttingContext& context_;
    const MarkedPlaces& marked_;
    const PartPreparation& prepared_;
    std::vector<Piece> open_;
    std::vector<ControlPath> levels_;
};

}  // namespace

CutPart cutPart(CuttingContext& context, opc::XmlPart& part, PartKind kind) {
    PartPreparation preparation(context, part, kind);
    preparation.prepare();
    const opc::WordNames names(part.root());
    CutPart cut{part.partName(),       {},    names.element(""),
                names.attribute(""),   names, Cutter(context, preparation).cut(part.toXml()),
                preparation.formats(), kind};
    for (PlaceFormat& format : cut.formats)
        format.paragraphPieces = Cutter(context, preparation).cut(format.paragraphProperties);
    findValuesBeside(cut.pieces);
    return cut;
}

}  // namespace mergeloom::embedded
