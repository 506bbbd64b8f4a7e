#include "office/graft/SequenceAlignment.h"
#include "office/graft/StoryDifference.h"
#include "office/graft/WordExport.h"
#include "office/graft/WordGraft.h"
#include "office/graft/WordRules.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::graft {

namespace {

using model::GraftRefusal;

std::string withoutBlanksAtEnd(std::string key) {
    key.resize(key.find_last_not_of(' ') + 1);
    return key;
}

/// Returns true if a line of the proof has the text of the edited document. LibreOffice does not read blanks
/// at the ends of cells in documents of the modes before Word 2013, not even from its own export.
bool haveSameText(const Line& edited, const Line* again, const Line& proof) {
    const std::string wanted = textKeyOf(edited);
    const std::string found = textKeyOf(proof);
    if (wanted == found) return true;
    return again != nullptr && textKeyOf(*again) == found && edited.depth > 0 &&
           withoutBlanksAtEnd(wanted) == withoutBlanksAtEnd(found);
}

/// A story of the edited document's export after it was read and written once more.
class AgainStory {
  public:
    /// The second story may be null.
    AgainStory(const ReadStory& edited, const ReadStory* again) : story_(again) {
        if (story_ == nullptr) return;
        const auto gaps = gapsBetween(keysOf(edited.lines), keysOf(story_->lines));
        if (gaps) partners_ = partnersOf(*gaps, edited.lines.size());
        isWhole_ = edited.lines.size() == story_->lines.size();
    }

    /// Null if there is none.
    [[nodiscard]] const ReadStory* story() const { return story_; }
    /// Returns the story if it has as many lines as the edited one.
    [[nodiscard]] const ReadStory* whole() const { return isWhole_ ? story_ : nullptr; }
    /// Returns the line that was read for an edited one, or null.
    [[nodiscard]] const Line* at(std::size_t line) const {
        if (isWhole_) return &story_->lines[line];
        const bool hasPartner = line < partners_.size() && partners_[line] != kNoPartner;
        return hasPartner ? &story_->lines[partners_[line]] : nullptr;
    }

  private:
    static std::vector<std::string> keysOf(const std::vector<Line>& lines) {
        std::vector<std::string> keys;
        keys.reserve(lines.size());
        for (const Line& line : lines)
            keys.push_back(withoutBlanksAtEnd(textKeyOf(line)));
        return keys;
    }

    const ReadStory* story_;
    std::vector<std::size_t> partners_;
    bool isWhole_ = false;
};

/// Compares the proof with the edited document story by story.
class Proof {
  public:
    Proof(WordExport& baseline, WordExport& edited, WordExport* again, WordExport& proof)
        : baseline_(baseline), edited_(edited), again_(again), proof_(proof) {}

    std::optional<GraftRefusal> findFault() {
        if (edited_.stories().size() != proof_.stories().size() ||
            edited_.stories().size() != baseline_.stories().size())
            return GraftRefusal{"the result has other headers, notes or text boxes", {}};
        for (std::size_t story = 0; story < edited_.stories().size(); ++story)
            if (auto fault = compare(story)) return fault;
        return compareParts();
    }

  private:
    [[nodiscard]] std::optional<GraftRefusal> compare(std::size_t number) const {
        const ReadStory& edited = edited_.stories()[number];
        const ReadStory& proof = proof_.stories()[number];
        const AgainStory again = againAt(number);
        if (edited.name() != proof.name()) return GraftRefusal{"the result has other stories", {}};
        const std::size_t count = std::min(edited.lines.size(), proof.lines.size());
        for (std::size_t line = 0; line < count; ++line)
            if (!haveSameText(edited.lines[line], again.at(line), proof.lines[line]))
                return GraftRefusal{"the text of the result would differ", shownText(edited.lines[line])};
        if (edited.lines.size() != proof.lines.size())
            return GraftRefusal{"the result would have more or fewer paragraphs", {}};
        const std::string moved = movedMark(edited, proof, again.whole());
        if (!moved.empty()) return GraftRefusal{"a place would be elsewhere in the result", moved};
        if (auto fault = compareForms(number, edited, proof, again)) return fault;
        const bool isSameSection = edited.section == proof.section ||
                                   (again.story() != nullptr && again.story()->section == proof.section);
        if (!isSameSection) return GraftRefusal{"the page would differ in the result", {}};
        return {};
    }
    /// The office may write another number of headers. The text of the body is the first story.
    [[nodiscard]] AgainStory againAt(std::size_t number) const {
        const bool hasStories = again_ != nullptr && !again_->stories().empty() &&
                                (number == 0 || again_->stories().size() == edited_.stories().size());
        return {edited_.stories()[number], hasStories ? &again_->stories()[number] : nullptr};
    }
    /// The form of new paragraphs may differ, since the office does not read all properties that it writes.
    [[nodiscard]] std::optional<GraftRefusal> compareForms(std::size_t number, const ReadStory& edited,
                                                           const ReadStory& proof,
                                                           const AgainStory& again) const {
        const auto difference = differenceBetween(baseline_.stories()[number].lines, edited.lines);
        if (!difference) return GraftRefusal{"too much was changed to be compared", {}};
        for (std::size_t line = 0; line < edited.lines.size(); ++line) {
            const std::string& key = proof.lines[line].key;
            const Line* const readAgain = again.at(line);
            if (key == edited.lines[line].key || (readAgain != nullptr && key == readAgain->key)) continue;
            const auto touched = std::ranges::lower_bound(difference->touched, line, {}, &TouchedLine::line);
            const bool isNew =
                touched != difference->touched.end() && touched->line == line && touched->isInserted();
            if (!isNew) return GraftRefusal{"the result would look different", shownText(edited.lines[line])};
        }
        return {};
    }
    [[nodiscard]] std::optional<GraftRefusal> compareParts() {
        for (const PartDifference& part : differencesOf(edited_.package(), proof_.package(), wordRules())) {
            if (isEqualIn(again_, part) || isEqualIn(&baseline_, part)) continue;
            return GraftRefusal{"the result would have a different part " + part.partName, {}};
        }
        return {};
    }
    [[nodiscard]] bool isEqualIn(WordExport* other, const PartDifference& part) {
        if (other == nullptr) return false;
        const auto parts = differencesOf(other->package(), proof_.package(), wordRules());
        return std::ranges::find(parts, part.partName, &PartDifference::partName) == parts.end();
    }

    WordExport& baseline_;
    WordExport& edited_;
    WordExport* again_;
    WordExport& proof_;
};

}  // namespace

std::optional<GraftRefusal> findFaultInDocument(const model::EditedPackage& package,
                                                const std::string& editedAgain, const std::string& proof) {
    FormatNumbers formats;
    WordExport baseline(package.baseline, package.fileName, formats);
    WordExport edited(package.edited, package.fileName, formats);
    WordExport made(proof, package.fileName, formats);
    std::optional<WordExport> again;
    if (!editedAgain.empty()) again.emplace(editedAgain, package.fileName, formats);
    return Proof(baseline, edited, again ? &*again : nullptr, made).findFault();
}

}  // namespace mergeloom::graft
