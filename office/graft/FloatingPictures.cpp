#include "office/graft/FloatingPictures.h"

#include "office/graft/LinePartners.h"
#include "office/graft/Refusal.h"
#include "office/graft/SequenceAlignment.h"

#include <algorithm>
#include <ranges>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::graft {

namespace {

/// Collects the floating objects of a line in the order of the text.
class AnchorCollector final : public pugi::xml_tree_walker {
  public:
    explicit AnchorCollector(const Line& line) : line_(line) {}

    bool for_each(pugi::xml_node& node) override {
        while (unit_ < line_.units.size() && line_.units[unit_].run == node)
            ++unit_;
        if (std::string_view(node.name()) == "wp:anchor") found.push_back({node, unit_});
        return true;
    }

    std::vector<FloatingObject> found;

  private:
    const Line& line_;
    std::size_t unit_ = 0;
};

std::vector<FloatingObject> floatingOf(const Line& line) {
    AnchorCollector collector(line);
    pugi::xml_node paragraph = line.node;
    paragraph.traverse(collector);
    return collector.found;
}

/// The floating objects of a story in canonical form, each as often as it occurs.
class KnownObjects {
  public:
    KnownObjects(const ReadStory& story, const CanonicalXml& canonical) {
        for (const Line& line : story.lines)
            for (const FloatingObject& each : floatingOf(line))
                known_.push_back(canonical.of(each.anchor));
    }

    /// Removes an object. Returns false if it is not there.
    bool take(const std::string& object) {
        const auto found = std::ranges::find(known_, object);
        if (found == known_.end()) return false;
        known_.erase(found);
        return true;
    }
    [[nodiscard]] std::size_t count() const { return known_.size(); }

  private:
    std::vector<std::string> known_;
};

}  // namespace

void FloatingPictures::repeat(embedded::WordContent& content, embedded::Story& original,
                              const ReadStory& former, const ReadStory& now) {
    const CanonicalXml canonical = edited_.canonicalOf(*now.story);
    KnownObjects known(former, baseline_.canonicalOf(*former.story));
    const std::size_t formerCount = known.count();
    std::vector<Added> added;
    std::size_t count = 0;
    for (std::size_t line = 0; line < now.lines.size(); ++line) {
        for (const FloatingObject& each : floatingOf(now.lines[line])) {
            ++count;
            if (!known.take(canonical.of(each.anchor))) added.push_back({line, each});
        }
    }
    // A different form alone is no change by the user: the office may write an object differently after an
    // edit of its paragraph.
    if (count <= formerCount) return;
    if (known.count() > 0) throw Refusal("an object was inserted and another one changed");
    insert(content, original, now, added);
}

/// Inserts from the last to the first, so that the places of the earlier ones remain valid.
void FloatingPictures::insert(embedded::WordContent& content, embedded::Story& original, const ReadStory& now,
                              const std::vector<Added>& added) {
    std::vector<Line> lines = LineReader().read(original);
    const std::vector<std::size_t> partners = partnersByText(now.lines, lines);
    for (const Added& each : std::views::reverse(added)) {
        if (partners[each.line] == kNoPartner) throw Refusal("an object was inserted");
        const Line& own = lines[partners[each.line]];
        const std::size_t unit = each.object.unit;
        const CharacterPosition place = unit == 0 ? own.start : own.units[unit - 1].end;
        pictures_.insert(content, original, place, *now.story, each.object.anchor);
    }
}

}  // namespace mergeloom::graft
