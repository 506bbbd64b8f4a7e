#pragma once

#include "office/embedded/letters/OmittedContent.h"
#include "office/embedded/parts/AddedParts.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// Collects what is added to a letter: parts, and the content that it leaves out.
class LetterParts : public AddedParts {
  public:
    using AddedParts::AddedParts;

    /// Discards the additions to the previous letter.
    void begin() {
        AddedParts::begin();
        omitted_.clear();
    }
    /// Keeps the XML of content that the letter leaves out. Returns its number.
    std::size_t omit(const std::string& xml) {
        omitted_.push_back(xml);
        return omitted_.size();
    }
    /// Returns how much content has been kept, or discards what was kept after that.
    [[nodiscard]] std::size_t omittedCount() const { return omitted_.size(); }
    void keepOmitted(std::size_t count) { omitted_.resize(count); }
    /// Sets the part that the additions of the main document belong to.
    void setMainPart(const std::string& name) { mainPart_ = name; }
    /// Appends all additions to the changed parts.
    void addTo(ChangedParts& changed) {
        if (!omitted_.empty()) addXml(mainPart_, "customXml", "/customXml/item", omittedPartXml(omitted_));
        AddedParts::addTo(changed);
    }

  private:
    std::vector<std::string> omitted_;
    std::string mainPart_;
};

}  // namespace mergeloom::embedded
