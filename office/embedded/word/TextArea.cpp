#include "office/embedded/word/TextArea.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace mergeloom::embedded {

namespace {

constexpr std::int64_t kUsualWidth = 9026;       // twips: A4 between margins of 2.54 cm
constexpr std::int64_t kUsualCellMargins = 216;  // twips: both sides of "Table Normal"

/// A measure in twips: a bare number, or one with its unit (ECMA-376 Part 1, 22.9.2.14).
std::int64_t twipsOf(const char* measure) {
    char* unit = nullptr;
    const double number = std::strtod(measure, &unit);
    double twips = number;
    if (std::strcmp(unit, "pt") == 0) twips = number * 20;
    if (std::strcmp(unit, "in") == 0) twips = number * 1440;
    if (std::strcmp(unit, "cm") == 0) twips = number * 1440 / 2.54;
    if (std::strcmp(unit, "mm") == 0) twips = number * 1440 / 25.4;
    return static_cast<std::int64_t>(twips);
}

class SectionReader {
  public:
    explicit SectionReader(const Story& story) : names_(story.names()), story_(story) {}

    [[nodiscard]] std::int64_t widthAt(const Item* item) const {
        if (const pugi::xml_node cell = story_.cellOf(item)) {
            const std::int64_t width = cellWidth(cell);
            if (width > kUsualCellMargins) return width - kUsualCellMargins;
        }
        const std::int64_t width = columnWidth(sectionOf(item));
        return width > 0 ? width : kUsualWidth;
    }

  private:
    [[nodiscard]] pugi::xml_node named(pugi::xml_node parent, std::string_view name) const {
        return parent.child(names_.element(name).c_str());
    }
    [[nodiscard]] std::int64_t measure(pugi::xml_node node, std::string_view name) const {
        return twipsOf(names_.value(node, name));
    }

    [[nodiscard]] std::int64_t cellWidth(pugi::xml_node cell) const {
        const pugi::xml_node width = named(named(cell, "tcPr"), "tcW");
        return std::string_view(names_.value(width, "type")) == "dxa" ? measure(width, "w") : 0;
    }

    /// The properties of the section that an item stands in: those in the next paragraph that has some, or
    /// those that end the body.
    [[nodiscard]] pugi::xml_node sectionOf(const Item* item) const {
        for (; item; item = ItemTree::next(item)) {
            if (item->kind != ItemKind::ParagraphMark) continue;
            const pugi::xml_node properties = names_.child(item->node, opc::WordTag::ParagraphProperties);
            if (const pugi::xml_node section = names_.child(properties, opc::WordTag::SectionProperties)) {
                return section;
            }
        }
        return lastSection();
    }

    /// The properties that end the body. They stand last in it (ECMA-376 Part 1, 17.2.2), with nothing but
    /// marks behind them, so the body is not searched from its start.
    [[nodiscard]] pugi::xml_node lastSection() const {
        for (pugi::xml_node node = story_.root().last_child(); node; node = node.previous_sibling()) {
            switch (names_.tagOf(node)) {
                case opc::WordTag::SectionProperties:
                    return node;
                case opc::WordTag::Paragraph:
                case opc::WordTag::Table:
                    return {};
                default:
                    break;
            }
        }
        return {};
    }

    [[nodiscard]] std::int64_t columnWidth(pugi::xml_node section) const {
        const pugi::xml_node margins = named(section, "pgMar");
        const std::int64_t text = measure(named(section, "pgSz"), "w") - measure(margins, "left") -
                                  measure(margins, "right") - measure(margins, "gutter");
        const pugi::xml_node columns = named(section, "cols");
        const std::int64_t count = std::atoi(names_.value(columns, "num"));
        if (count < 2) return text;
        return (text - (count - 1) * measure(columns, "space")) / count;
    }

    const opc::WordNames& names_;
    const Story& story_;
};

}  // namespace

Emu textAreaWidth(const Story& story, CharacterPosition position) {
    return {SectionReader(story).widthAt(story.items().itemAt(position)) * kEmuPerTwip};
}

}  // namespace mergeloom::embedded
