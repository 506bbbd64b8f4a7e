#include "office/graft/LinkReplay.h"

#include "office/graft/LinePartners.h"
#include "office/graft/Refusal.h"
#include "office/graft/SequenceAlignment.h"
#include "office/opc/Relationships.h"

#include <algorithm>
#include <ranges>
#include <string_view>

namespace mergeloom::graft {

namespace {

using embedded::Item;
using opc::WordTag;

constexpr const char* kNamespaceOfIds = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

/// The attributes of a link besides the id of its relationship.
constexpr std::string_view kAttributes[] = {"anchor", "tooltip", "docLocation", "tgtFrame"};

/// Returns the link around a unit; none outside of links.
pugi::xml_node linkOf(const Unit& unit, const embedded::Story& story) {
    return story.names().ancestor(unit.run, WordTag::Hyperlink);
}

/// Returns true if text is in front of a node inside another one, or after it.
bool hasTextBeside(pugi::xml_node first, pugi::xml_node last, const opc::WordNames& names) {
    for (pugi::xml_node node = first.previous_sibling(); node; node = node.previous_sibling())
        if (names.tagOf(node) == WordTag::Run) return true;
    for (pugi::xml_node node = last.next_sibling(); node; node = node.next_sibling())
        if (names.tagOf(node) == WordTag::Run) return true;
    return false;
}

}  // namespace

void LinkReplay::repeat(embedded::Story& original, const ReadStory& former, const ReadStory& now,
                        const StoryDifference& difference) {
    story_ = &original;
    former_ = &former;
    now_ = &now;
    lines_ = LineReader().read(original);
    stretches_.clear();
    const std::vector<std::size_t> partners = partnersByText(now.lines, lines_);
    for (const TouchedLine& touched : difference.touched)
        if (partners[touched.line] != kNoPartner) collect(touched, partners[touched.line]);
    for (const Stretch& stretch : stretches_)
        apply(stretch);
}

/// Returns a text that is equal for equal links, and empty for none.
std::string LinkReplay::keyOf(WordExport& exported, const ReadStory& story, pugi::xml_node link) const {
    if (!link) return {};
    pugi::xml_document shell;
    pugi::xml_node copy = shell.append_child(link.name());
    for (const pugi::xml_attribute attribute : link.attributes())
        copy.append_copy(attribute);
    return exported.canonicalOf(*story.story).of(copy);
}

void LinkReplay::collect(const TouchedLine& touched, std::size_t ownLine) {
    const Line& now = now_->lines[touched.line];
    for (std::size_t unit = 0; unit < now.units.size(); ++unit) {
        const pugi::xml_node link = linkOf(now.units[unit], *now_->story);
        const std::optional<LinePlace>& place = touched.units[unit];
        pugi::xml_node before;
        if (place) before = linkOf(former_->lines[place->line].units[place->unit], *former_->story);
        if (place && keyOf(baseline_, *former_, before) == keyOf(edited_, *now_, link)) continue;
        if (!place && (!link || isOfNeighbour(touched, unit))) continue;
        const bool continues = !stretches_.empty() && stretches_.back().line == ownLine &&
                               stretches_.back().end == unit && stretches_.back().now == link &&
                               stretches_.back().wasLink == static_cast<bool>(before);
        if (!continues) stretches_.push_back({ownLine, unit, unit, link, static_cast<bool>(before)});
        stretches_.back().end = unit + 1;
    }
}

/// Returns true if a new unit is in a link that was there: its text was typed into that link.
bool LinkReplay::isOfNeighbour(const TouchedLine& touched, std::size_t unit) const {
    const Line& now = now_->lines[touched.line];
    const pugi::xml_node link = linkOf(now.units[unit], *now_->story);
    const std::string key = keyOf(edited_, *now_, link);
    for (std::size_t other = 0; other < now.units.size(); ++other) {
        const std::optional<LinePlace>& place = touched.units[other];
        if (!place || linkOf(now.units[other], *now_->story) != link) continue;
        const Unit& former = former_->lines[place->line].units[place->unit];
        if (keyOf(baseline_, *former_, linkOf(former, *former_->story)) == key) return true;
    }
    return false;
}

void LinkReplay::apply(const Stretch& stretch) {
    const Line& line = lines_[stretch.line];
    content_.beginEdit(*story_, line.units[stretch.start].start, line.units[stretch.end - 1].end);
    story_->part().setDirty(true);
    if (!stretch.wasLink) return wrap(stretch);
    const pugi::xml_node link = wholeLinkOf(stretch);
    if (stretch.now) return setTarget(link, stretch.now);
    while (const pugi::xml_node child = link.first_child())
        link.parent().insert_move_before(child, link);
    story_->part().detach(link);
}

/// Returns the runs with the text of a stretch and nothing else.
std::vector<pugi::xml_node> LinkReplay::runsOf(const Stretch& stretch) {
    const Line& line = lines_[stretch.line];
    const CharacterPosition start = line.units[stretch.start].start;
    const CharacterPosition end = line.units[stretch.end - 1].end;
    embedded::StoryEditor& editor = content_.editable(*story_).editor;
    editor.splitRun(start);
    editor.splitRun(end);
    std::vector<pugi::xml_node> runs;
    for (const Item* item = story_->items().itemAt(start); item != nullptr;
         item = embedded::ItemTree::next(item)) {
        if (story_->positionOf(item) >= end) break;
        const pugi::xml_node run = story_->names().ancestor(item->node, WordTag::Run);
        if (run && (runs.empty() || runs.back() != run)) runs.push_back(run);
    }
    return runs;
}

/// Puts a new link around runs that have none.
void LinkReplay::wrap(const Stretch& stretch) {
    const std::vector<pugi::xml_node> runs = runsOf(stretch);
    const bool areSiblings = !runs.empty() && std::ranges::all_of(runs, [&](pugi::xml_node run) {
        return run.parent() == runs.front().parent();
    });
    const bool isFree = areSiblings && !story_->names().ancestor(runs.front(), WordTag::Hyperlink) &&
                        !story_->names().ancestor(runs.front(), WordTag::SimpleField);
    if (!isFree) throw Refusal("a link was set across other elements", shownText(lines_[stretch.line]));
    pugi::xml_node parent = runs.front().parent();
    pugi::xml_node link =
        parent.insert_child_before(story_->names().element("hyperlink").c_str(), runs.front());
    setTarget(link, stretch.now);
    const pugi::xml_node last = runs.back();
    while (link.last_child() != last)
        link.append_move(link.next_sibling());
}

/// Returns the original's link whose text is that of the stretch. Raises Refusal if it has another form.
pugi::xml_node LinkReplay::wholeLinkOf(const Stretch& stretch) {
    const std::vector<pugi::xml_node> runs = runsOf(stretch);
    pugi::xml_node link;
    if (!runs.empty()) link = story_->names().ancestor(runs.front(), WordTag::Hyperlink);
    const bool isWhole = link && runs.front().parent() == link && runs.back().parent() == link &&
                         !hasTextBeside(runs.front(), runs.back(), story_->names());
    if (!isWhole) throw Refusal("a part of a link was changed", shownText(lines_[stretch.line]));
    return link;
}

void LinkReplay::setTarget(pugi::xml_node link, pugi::xml_node source) {
    const opc::WordNames& names = story_->names();
    if (names.isStrict()) throw Refusal("a link was changed");
    link.remove_attribute("r:id");
    for (const std::string_view name : kAttributes) {
        link.remove_attribute(names.attribute(name).c_str());
        const std::string value = now_->story->names().value(source, name);
        if (!value.empty()) link.append_attribute(names.attribute(name).c_str()).set_value(value.c_str());
    }
    opc::Package& exported = edited_.package();
    const opc::Relationships& relationships = exported.relationshipsOf(now_->story->part().partName());
    const opc::Relationship* const target = relationships.find(source.attribute("r:id").value());
    if (target == nullptr) return;
    if (target->mode != opc::TargetMode::External) throw Refusal("a link to a part of the file was set");
    const std::string type = opc::officeRelationshipType("hyperlink", opc::Conformance::Transitional);
    opc::Relationships& own = content_.package().relationshipsOf(story_->part().partName());
    if (!link.attribute("xmlns:r") &&
        std::string_view(story_->root().root().first_child().attribute("xmlns:r").value()) != kNamespaceOfIds)
        link.append_attribute("xmlns:r") = kNamespaceOfIds;
    link.append_attribute("r:id").set_value(own.addExternal(type, target->target).c_str());
}

}  // namespace mergeloom::graft
