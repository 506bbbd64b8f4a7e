#pragma once

#include "base/Units.h"

#include <memory>
#include <optional>
#include <string>

namespace mergeloom::libreoffice {

class WriterStory;

/// A stretch of positions without a story.
struct Stretch {
    CharacterPosition start;
    CharacterPosition end;

    friend bool operator==(const Stretch&, const Stretch&) = default;  // NOLINT
};

/// A bookmark of the document: where it stands by Word's habits, and where Writer has it, as far as that is
/// known. Where the two differ, Writer's has to be put in anew.
struct MarkRecord {
    std::string name;
    WriterStory* story = nullptr;
    Stretch place;
    std::optional<Stretch> inWriter;
    bool isWritten = true;  ///< false until Writer is told of it for the first time
    bool listed = true;     ///< false once the bookmark is deleted

    /// Word keeps bookmarks of such names out of its collections, though they are found by name.
    [[nodiscard]] bool isHidden() const { return name.starts_with('_'); }
};

using MarkPtr = std::shared_ptr<MarkRecord>;

}  // namespace mergeloom::libreoffice
