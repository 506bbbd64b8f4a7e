#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/graft/StoryDifference.h"
#include "office/graft/WordExport.h"

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// Repeats the links that the user set, changed and removed on a story of the original (CT_Hyperlink,
/// ECMA-376 Part 1, 17.16.22). The original's other links stay, also those that it has as fields.
class LinkReplay {
  public:
    /// All arguments must outlive it.
    LinkReplay(embedded::WordContent& content, WordExport& baseline, WordExport& edited)
        : content_(content), baseline_(baseline), edited_(edited) {}

    /// The original's story must have the present text already. Raises Refusal for a link that the original
    /// has in another form.
    void repeat(embedded::Story& original, const ReadStory& former, const ReadStory& now,
                const StoryDifference& difference);

  private:
    /// Units of a line whose link was changed in the same way.
    struct Stretch {
        std::size_t line = 0;  ///< of the original
        std::size_t start = 0;
        std::size_t end = 0;
        pugi::xml_node now;  ///< the link of the export; none where it was removed
        bool wasLink = false;
    };

    void collect(const TouchedLine& touched, std::size_t ownLine);
    [[nodiscard]] bool isOfNeighbour(const TouchedLine& touched, std::size_t unit) const;
    [[nodiscard]] std::string keyOf(WordExport& exported, const ReadStory& story, pugi::xml_node link) const;
    void apply(const Stretch& stretch);
    void wrap(const Stretch& stretch);
    [[nodiscard]] std::vector<pugi::xml_node> runsOf(const Stretch& stretch);
    [[nodiscard]] pugi::xml_node wholeLinkOf(const Stretch& stretch);
    void setTarget(pugi::xml_node link, pugi::xml_node source);

    embedded::WordContent& content_;
    WordExport& baseline_;
    WordExport& edited_;

    // The story that is being changed.
    embedded::Story* story_ = nullptr;
    const ReadStory* former_ = nullptr;
    const ReadStory* now_ = nullptr;
    std::vector<Line> lines_;
    std::vector<Stretch> stretches_;
};

}  // namespace mergeloom::graft
