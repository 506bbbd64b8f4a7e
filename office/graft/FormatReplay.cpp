#include "office/graft/FormatReplay.h"

#include "office/graft/LinePartners.h"
#include "office/graft/Refusal.h"
#include "office/graft/SequenceAlignment.h"
#include "office/opc/XmlPart.h"

#include <algorithm>

namespace mergeloom::graft {

namespace {

using embedded::Item;
using opc::WordTag;

/// The largest number of lines that are searched for the formatting of new text.
constexpr std::size_t kLinesAround = 200;

std::string xmlOf(pugi::xml_node node) {
    std::string text;
    opc::StringWriter writer(text);
    for (const pugi::xml_node child : node.children())
        child.print(writer, "", pugi::format_raw);
    return text;
}

/// Replaces the content of properties.
void assign(pugi::xml_node properties, pugi::xml_node source) {
    properties.remove_children();
    for (const pugi::xml_node child : source.children())
        properties.append_copy(child);
}

/// Returns the properties of an element, which are its first child. Inserts empty properties if it has none.
pugi::xml_node requireProperties(pugi::xml_node element, const std::string& name) {
    if (const pugi::xml_node found = element.child(name.c_str())) return found;
    return element.prepend_child(name.c_str());
}

/// Returns true for a unit whose formatting can be copied to others. The font of a symbol is its content.
bool isFormatted(const Unit& unit) {
    return unit.code != kField && !isSymbol(unit);
}

}  // namespace

void FormatReplay::repeat(embedded::Story& original, const ReadStory& former, const ReadStory& now,
                          const StoryDifference& difference) {
    story_ = &original;
    former_ = &former;
    now_ = &now;
    difference_ = &difference;
    canonical_.emplace(canonicalSource_.canonicalOf(*now.story));
    lines_ = LineReader().read(original);
    partners_ = partnersByText(now.lines, lines_);
    formerPartners_.assign(former.lines.size(), kNoPartner);
    for (std::size_t line = 0; line < now.lines.size(); ++line)
        if (difference.formerOfLine[line] != kNoPartner)
            formerPartners_[difference.formerOfLine[line]] = partners_[line];
    changes_.clear();
    for (const TouchedLine& touched : difference.touched)
        repeatLine(touched);
    for (const RunChange& change : changes_)
        apply(change);
    repeatSection();
}

void FormatReplay::repeatLine(const TouchedLine& touched) {
    const Line& now = now_->lines[touched.line];
    if (now.end == LineEnd::Row) return;
    if (partners_[touched.line] == kNoPartner)
        throw Refusal("LibreOffice reads the paragraph differently from the file", shownText(now));
    const Line& own = lines_[partners_[touched.line]];
    collectRunChanges(touched, own);
    repeatParagraph(touched, own);
}

void FormatReplay::collectRunChanges(const TouchedLine& touched, const Line& own) {
    const Line& now = now_->lines[touched.line];
    for (std::size_t unit = 0; unit < now.units.size(); ++unit) {
        const std::optional<LinePlace>& place = touched.units[unit];
        if (!place) {
            addInserted(touched, own, unit);
            continue;
        }
        const Line& former = former_->lines[place->line];
        const std::pair<int, int> formats{former.units[place->unit].format, now.units[unit].format};
        if (formats.first == formats.second || extendsLast(own, unit, formats)) continue;
        const PropertyDelta delta(runPropertiesOf(former, place->unit, *former_->story),
                                  runPropertiesOf(now, unit, *now_->story), *canonical_);
        if (!delta.isEmpty()) add(own, unit, {{}, {}, delta, {}, formats});
    }
}

/// Compares new text with text that existed before. Text that looks the same in the exports gets the same
/// properties in the original.
void FormatReplay::addInserted(const TouchedLine& touched, const Line& own, std::size_t unit) {
    const Line& now = now_->lines[touched.line];
    const std::pair<int, int> formats{-1, now.units[unit].format};
    if (extendsLast(own, unit, formats)) return;
    const std::optional<Neighbour> neighbour = neighbourOf(touched, own, unit);
    if (!neighbour) return;
    const PropertyDelta delta(neighbour->now, runPropertiesOf(now, unit, *now_->story), *canonical_);
    const pugi::xml_node present = runPropertiesOf(own, unit, *story_);
    if (delta.isEmpty() && xmlOf(neighbour->own) == xmlOf(present)) return;
    add(own, unit, {{}, {}, delta, copyOf(neighbour->own), formats});
}

/// Extends the last change to the next unit if that changes in the same way.
bool FormatReplay::extendsLast(const Line& own, std::size_t unit, const std::pair<int, int>& formats) {
    const bool isSame = !changes_.empty() && changes_.back().end == own.units[unit].start &&
                        changes_.back().formats == formats;
    if (isSame) changes_.back().end = own.units[unit].end;
    return isSame;
}

/// Returns the nearest unit of the line that existed before, preferably one that looks the same, or else a
/// unit of a nearby line.
std::optional<FormatReplay::Neighbour> FormatReplay::neighbourOf(const TouchedLine& touched, const Line& own,
                                                                 std::size_t unit) const {
    const Line& now = now_->lines[touched.line];
    const auto wasThere = [&](std::size_t candidate) {
        const std::optional<LinePlace>& place = touched.units[candidate];
        return place && isFormatted(now.units[candidate]) &&
               former_->lines[place->line].units[place->unit].format == now.units[candidate].format;
    };
    std::optional<std::size_t> any;
    for (std::size_t distance = 1; distance <= now.units.size(); ++distance) {
        const bool hasLeft = unit >= distance;
        for (const std::size_t candidate : {hasLeft ? unit - distance : now.units.size(), unit + distance}) {
            if (candidate >= now.units.size() || !wasThere(candidate)) continue;
            const bool looksTheSame = now.units[candidate].format == now.units[unit].format;
            if (!any || looksTheSame) any = candidate;
            if (looksTheSame) distance = now.units.size();
        }
    }
    if (!any) return neighbourAround(touched.line, now.units[unit].format);
    return Neighbour{runPropertiesOf(now, *any, *now_->story), runPropertiesOf(own, *any, *story_)};
}

/// Returns a unit of an unchanged line: the nearest one with the format, or else the nearest one.
std::optional<FormatReplay::Neighbour> FormatReplay::neighbourAround(std::size_t nowLine, int format) const {
    std::optional<Neighbour> any;
    for (std::size_t distance = 1; distance < kLinesAround; ++distance) {
        for (const std::size_t line : {nowLine - distance, nowLine + distance}) {
            if (line >= now_->lines.size() || !isLeft(line)) continue;
            const Line& now = now_->lines[line];
            for (std::size_t unit = 0; unit < now.units.size(); ++unit) {
                const bool looksTheSame = now.units[unit].format == format;
                if (!isFormatted(now.units[unit]) || (any && !looksTheSame)) continue;
                any = {runPropertiesOf(now, unit, *now_->story),
                       runPropertiesOf(lines_[partners_[line]], unit, *story_)};
                if (looksTheSame) return any;
            }
        }
    }
    return any;
}

/// Returns true if the line is unchanged and is found in the original.
bool FormatReplay::isLeft(std::size_t nowLine) const {
    return difference_->formerOfLine[nowLine] != kNoPartner && partners_[nowLine] != kNoPartner;
}

void FormatReplay::add(const Line& own, std::size_t unit, RunChange change) {
    change.start = own.units[unit].start;
    change.end = own.units[unit].end;
    changes_.push_back(std::move(change));
}

void FormatReplay::apply(const RunChange& change) {
    embedded::StoryEditor& editor = content_.editable(*story_).editor;
    content_.beginEdit(*story_, change.start, change.end);
    editor.splitRun(change.start);
    editor.splitRun(change.end);
    pugi::xml_node last;
    for (const Item* item = story_->items().itemAt(change.start); item != nullptr;
         item = embedded::ItemTree::next(item)) {
        if (item->takesPlace() && story_->positionOf(item) >= change.end) break;
        const pugi::xml_node run = item->node.parent();
        if (run == last || story_->names().tagOf(run) != WordTag::Run) continue;
        applyToRun(run, change);
        last = run;
    }
    story_->part().setDirty(true);
}

void FormatReplay::applyToRun(pugi::xml_node run, const RunChange& change) {
    const opc::WordNames& names = story_->names();
    const pugi::xml_node properties = requireProperties(run, names.element("rPr"));
    if (change.base) assign(properties, change.base);
    change.delta.applyTo(properties, names, translation(Missing::Refused));
    if (!properties.first_child()) run.remove_child(properties);
}

void FormatReplay::repeatParagraph(const TouchedLine& touched, const Line& own) {
    if (!touched.mark) return formatNewParagraph(touched, own);
    const Line& former = former_->lines[*touched.mark];
    const Line& now = now_->lines[touched.line];
    const PropertyDelta delta(paragraphPropertiesOf(former, *former_->story),
                              paragraphPropertiesOf(now, *now_->story), *canonical_);
    if (delta.isEmpty()) return;
    content_.beginEdit(*story_, own.mark, own.mark);
    pugi::xml_node paragraph = own.node;
    const pugi::xml_node properties = requireProperties(paragraph, story_->names().element("pPr"));
    delta.applyTo(properties, story_->names(), translation(Missing::Refused));
    if (!properties.first_child()) paragraph.remove_child(properties);
    story_->part().setDirty(true);
}

void FormatReplay::formatNewParagraph(const TouchedLine& touched, const Line& own) {
    const std::optional<std::size_t> neighbour = neighbourLineOf(touched.line);
    if (!neighbour) return;
    const opc::WordNames& names = story_->names();
    const Line& now = now_->lines[touched.line];
    if (names.child(paragraphPropertiesOf(own, *story_), WordTag::SectionProperties))
        throw Refusal("a paragraph was inserted beside a section's end", shownText(now));
    const PropertyDelta delta(paragraphPropertiesOf(now_->lines[*neighbour], *now_->story),
                              paragraphPropertiesOf(now, *now_->story), *canonical_);
    pugi::xml_node base = copyOf(paragraphPropertiesOf(lines_[partners_[*neighbour]], *story_));
    base.remove_child(names.element("sectPr").c_str());
    pugi::xml_node paragraph = own.node;
    const pugi::xml_node properties = requireProperties(paragraph, names.element("pPr"));
    assign(properties, base);
    delta.applyTo(properties, names, translation(Missing::LeftOut));
    if (!properties.first_child()) paragraph.remove_child(properties);
    story_->part().setDirty(true);
}

/// Returns the nearest line that existed before, preferably one of the same style. Returns none for a line in
/// another table or cell, whose formatting is that of the table.
std::optional<std::size_t> FormatReplay::neighbourLineOf(std::size_t nowLine) const {
    const std::vector<Line>& now = now_->lines;
    const auto isLeft = [&](std::size_t line) {
        const bool isOfKind = now[line].depth == now[nowLine].depth && now[line].end != LineEnd::Row &&
                              now[line].node.parent() == now[nowLine].node.parent();
        if (!isOfKind || partners_[line] == kNoPartner) return false;
        const auto touched = std::ranges::find(difference_->touched, line, &TouchedLine::line);
        return touched == difference_->touched.end() || touched->mark.has_value();
    };
    for (std::size_t line = nowLine; line-- > 0;)
        if (isLeft(line)) return line;
    for (std::size_t line = nowLine + 1; line < now.size(); ++line)
        if (isLeft(line)) return line;
    return {};
}

void FormatReplay::repeatSection() {
    if (former_->section == now_->section) return;
    const auto sectionOf = [](const embedded::Story& story) {
        return story.root().child(story.names().element("sectPr").c_str());
    };
    const pugi::xml_node own = sectionOf(*story_);
    if (!own) throw Refusal("the page was changed, which the file does not describe");
    const PropertyDelta delta(sectionOf(*former_->story), sectionOf(*now_->story), *canonical_);
    delta.applyTo(own, story_->names(), translation(Missing::Refused));
    story_->part().setDirty(true);
}

ValueTranslation FormatReplay::translation(Missing missing) const {
    return [this, missing](std::string_view element, const std::string& value) -> std::optional<std::string> {
        if (element == "pStyle" || element == "rStyle" || element == "tblStyle")
            return styleOf(value, missing);
        if (element == "numId") return listOf(value);
        return value;
    };
}

std::optional<std::string> FormatReplay::styleOf(const std::string& id, Missing missing) const {
    return missing == Missing::Refused ? styles_.require(id) : styles_.idOf(id);
}

/// Finds the list by a paragraph that belongs to it in both documents.
std::string FormatReplay::listOf(const std::string& number) const {
    const auto numberOf = [](const Line& line, const embedded::Story& story) {
        const opc::WordNames& names = story.names();
        const pugi::xml_node properties = names.child(line.node, WordTag::ParagraphProperties);
        const pugi::xml_node list = properties.child(names.element("numPr").c_str());
        return std::string(names.value(list.child(names.element("numId").c_str()), "val"));
    };
    if (number == "0") return number;
    for (std::size_t line = 0; line < former_->lines.size(); ++line) {
        if (formerPartners_[line] == kNoPartner || numberOf(former_->lines[line], *former_->story) != number)
            continue;
        std::string own = numberOf(lines_[formerPartners_[line]], *story_);
        if (!own.empty()) return own;
    }
    throw Refusal("a list was begun");
}

pugi::xml_node FormatReplay::runPropertiesOf(const Line& line, std::size_t unit,
                                             const embedded::Story& story) const {
    return story.names().child(line.units[unit].run, WordTag::RunProperties);
}

pugi::xml_node FormatReplay::paragraphPropertiesOf(const Line& line, const embedded::Story& story) const {
    return story.names().child(line.node, WordTag::ParagraphProperties);
}

/// The copy keeps the properties while runs are split and neighbours change.
pugi::xml_node FormatReplay::copyOf(pugi::xml_node properties) {
    return properties ? copies_.append_copy(properties) : copies_.append_child("none");
}

}  // namespace mergeloom::graft
