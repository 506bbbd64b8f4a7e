#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/graft/PropertyDelta.h"
#include "office/graft/StoryDifference.h"
#include "office/graft/StyleTransfer.h"
#include "office/graft/WordExport.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::graft {

/// Repeats the user's formatting of characters, paragraphs and the page on a story of the original. New text
/// that looks like its neighbour in the export gets the formatting of that neighbour in the original.
class FormatReplay {
  public:
    /// All arguments must outlive it.
    FormatReplay(embedded::WordContent& content, WordExport& edited, StyleTransfer& styles)
        : content_(content), canonicalSource_(edited), styles_(styles) {}

    /// The original's story must have the present text already. Raises Refusal for a change without a rule.
    void repeat(embedded::Story& original, const ReadStory& former, const ReadStory& now,
                const StoryDifference& difference);

  private:
    /// A unit that existed before, in the export and in the original.
    struct Neighbour {
        pugi::xml_node now;
        pugi::xml_node own;
    };
    /// A part of a line that gets formatting.
    struct RunChange {
        CharacterPosition start;
        CharacterPosition end;
        PropertyDelta delta;
        pugi::xml_node base;          ///< the properties to start from; none for the run's own
        std::pair<int, int> formats;  ///< equal for neighbouring units that change in the same way
    };
    enum class Missing { Refused, LeftOut };

    void repeatLine(const TouchedLine& touched);
    void collectRunChanges(const TouchedLine& touched, const Line& own);
    void repeatParagraph(const TouchedLine& touched, const Line& own);
    void formatNewParagraph(const TouchedLine& touched, const Line& own);
    void addInserted(const TouchedLine& touched, const Line& own, std::size_t unit);
    [[nodiscard]] std::optional<Neighbour> neighbourOf(const TouchedLine& touched, const Line& own,
                                                       std::size_t unit) const;
    [[nodiscard]] std::optional<Neighbour> neighbourAround(std::size_t nowLine, int format) const;
    [[nodiscard]] bool isLeft(std::size_t nowLine) const;
    [[nodiscard]] std::optional<std::size_t> neighbourLineOf(std::size_t nowLine) const;
    void add(const Line& own, std::size_t unit, RunChange change);
    bool extendsLast(const Line& own, std::size_t unit, const std::pair<int, int>& formats);
    void apply(const RunChange& change);
    void applyToRun(pugi::xml_node run, const RunChange& change);
    void repeatSection();
    [[nodiscard]] ValueTranslation translation(Missing missing) const;
    [[nodiscard]] std::optional<std::string> styleOf(const std::string& id, Missing missing) const;
    [[nodiscard]] std::string listOf(const std::string& number) const;
    [[nodiscard]] pugi::xml_node runPropertiesOf(const Line& line, std::size_t unit,
                                                 const embedded::Story& story) const;
    [[nodiscard]] pugi::xml_node paragraphPropertiesOf(const Line& line, const embedded::Story& story) const;
    pugi::xml_node copyOf(pugi::xml_node properties);

    embedded::WordContent& content_;
    WordExport& canonicalSource_;
    StyleTransfer& styles_;

    // The story that is being changed.
    embedded::Story* story_ = nullptr;
    const ReadStory* former_ = nullptr;
    const ReadStory* now_ = nullptr;
    const StoryDifference* difference_ = nullptr;
    std::optional<CanonicalXml> canonical_;
    std::vector<Line> lines_;
    std::vector<std::size_t> partners_;  ///< for each present line, its index in the original
    std::vector<std::size_t> formerPartners_;
    std::vector<RunChange> changes_;
    pugi::xml_document copies_;
};

}  // namespace mergeloom::graft
