#pragma once

#include "office/graft/PictureTransfer.h"
#include "office/graft/WordExport.h"

#include <cstddef>
#include <pugixml.hpp>
#include <vector>

namespace mergeloom::graft {

/// A floating object of a line.
struct FloatingObject {
    pugi::xml_node anchor;
    std::size_t unit = 0;  ///< the number of units in front of it
};

/// Inserts the floating pictures that the user added into a story of the original. They are no characters of
/// the text, so the difference of texts does not contain them.
class FloatingPictures {
  public:
    /// All arguments must outlive it.
    FloatingPictures(WordExport& baseline, WordExport& edited, PictureTransfer& pictures)
        : baseline_(baseline), edited_(edited), pictures_(pictures) {}

    /// The original's story must have all other changes already. Raises Refusal if another floating object
    /// was changed, too.
    void repeat(embedded::WordContent& content, embedded::Story& original, const ReadStory& former,
                const ReadStory& now);

  private:
    struct Added {
        std::size_t line = 0;  ///< of the export
        FloatingObject object;
    };

    void insert(embedded::WordContent& content, embedded::Story& original, const ReadStory& now,
                const std::vector<Added>& added);

    WordExport& baseline_;
    WordExport& edited_;
    PictureTransfer& pictures_;
};

}  // namespace mergeloom::graft
