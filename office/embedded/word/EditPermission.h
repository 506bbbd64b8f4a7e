#pragma once

#include "office/embedded/text/Story.h"
#include "office/opc/DocumentProtection.h"
#include "office/opc/Package.h"

#include <optional>

namespace mergeloom::embedded {

/// What a document forbids to edit: as a whole, by its protection, and in content controls, by their locks.
/// These raise kNotAvailable with a sentence before anything has changed.
class EditPermission {
  public:
    explicit EditPermission(opc::Package& package) : package_(package) {}

    /// For text that replaces a stretch, or comes in where it is empty.
    void checkText(const Story& story, CharacterPosition start, CharacterPosition end);
    /// For marks at both ends of a stretch, whose text stays.
    void checkMarks(const Story& story, CharacterPosition start, CharacterPosition end);

  private:
    void checkDocument(const Story& story, CharacterPosition position);
    opc::DocumentProtection protection();

    opc::Package& package_;
    std::optional<opc::DocumentProtection> protection_;  // read when the first edit asks
};

}  // namespace mergeloom::embedded
