#include "office/embedded/letters/OptionalText.h"

#include <string_view>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kGuard = "\u200D";

bool endsText(std::string_view tag) {
    const std::size_t end = tag.find_first_of(" />", 1);
    const std::string_view name = tag.substr(1, end - 1);
    const std::string_view local = name.substr(name.find(':') + 1);
    return tag.starts_with("</") ? tag.ends_with(":p>") || tag == "</p>"
                                 : local == "tab" || local == "br" || local == "cr" || local == "drawing" ||
                                       local == "pict" || local == "p";
}

/// Returns true if XML has no visible content.
bool isInvisible(std::string_view xml) {
    while (!xml.empty()) {
        if (xml.starts_with(kGuard)) {
            xml.remove_prefix(kGuard.size());
            continue;
        }
        const std::size_t end = xml.find('>');
        if (xml.front() != '<' || end == std::string_view::npos) return false;
        if (endsText(xml.substr(0, end + 1))) return false;
        xml.remove_prefix(end + 1);
    }
    return true;
}

/// Adds the nearest value in a direction, unless visible content is in between.
void addFirstValue(const Pieces& pieces, std::ptrdiff_t from, std::ptrdiff_t step,
                   std::vector<Piece>& values) {
    for (std::ptrdiff_t at = from + step; at >= 0 && at < std::ssize(pieces); at += step) {
        const Piece& piece = pieces[static_cast<std::size_t>(at)];
        if (piece.kind == Piece::Kind::Value) return values.push_back(piece);
        const bool isPassed =
            piece.kind == Piece::Kind::Once || (piece.kind == Piece::Kind::Fixed && isInvisible(piece.xml));
        if (!isPassed) return;
    }
}

}  // namespace

void findValuesBeside(Pieces& pieces) {
    for (std::ptrdiff_t at = 0; at < std::ssize(pieces); ++at) {
        Piece& piece = pieces[static_cast<std::size_t>(at)];
        findValuesBeside(piece.inside);
        if (piece.kind != Piece::Kind::Optional) continue;
        std::vector<Piece> values;
        addFirstValue(pieces, at, -1, values);
        addFirstValue(pieces, at, 1, values);
        piece.beside = std::move(values);
    }
}

}  // namespace mergeloom::embedded
