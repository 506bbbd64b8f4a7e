#include "office/embedded/word/TextArea.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace mergeloom::embedded {

namespace {

constexpr std::int64_t kDefaultWidth = 9026;       // twips: A4 between margins of 2.54 cm
constexpr std::int64_t kDefaultCellMargins = 216;  // twips: both sides of "Table Normal"

/// Returns a measure in twips: a number with or without a unit (ECMA-376 Part 1, 22.9.2.14).
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

/// Returns the properties at the end of the body. Only marks come after them (ECMA-376 Part 1, 17.2.2), so
/// the body is not searched from its start.
pugi::xml_node lastSectionOf(const Story& story) {
    for (pugi::xml_node node = story.root().last_child(); node; node = node.previous_sibling()) {
        switch (story.names().tagOf(node)) {
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

class TextWidth {
  public:
    explicit TextWidth(const Story& story) : names_(story.names()), story_(story) {}

    [[nodiscard]] std::int64_t widthAt(const Item* item) const {
        if (const pugi::xml_node cell = story_.cellOf(item)) {
            const std::int64_t width = cellWidth(cell);
            if (width > kDefaultCellMargins) return width - kDefaultCellMargins;
        }
        const std::int64_t width = columnWidth(sectionPropertiesOf(story_, item));
        return width > 0 ? width : kDefaultWidth;
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

pugi::xml_node sectionPropertiesOf(const Story& story, const Item* item) {
    for (; item; item = ItemTree::next(item)) {
        if (item->kind != ItemKind::ParagraphMark) continue;
        const pugi::xml_node properties = story.names().child(item->node, opc::WordTag::ParagraphProperties);
        const pugi::xml_node section = story.names().child(properties, opc::WordTag::SectionProperties);
        if (section) return section;
    }
    return lastSectionOf(story);
}

Emu textAreaWidth(const Story& story, CharacterPosition position) {
    return {TextWidth(story).widthAt(story.items().itemAt(position)) * kEmuPerTwip};
}

}  // namespace mergeloom::embedded
