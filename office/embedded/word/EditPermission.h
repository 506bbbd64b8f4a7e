#pragma once

#include "office/embedded/text/Story.h"
#include "office/opc/DocumentProtection.h"
#include "office/opc/Package.h"

#include <optional>

namespace mergeloom::embedded {

/// Checks edits against the document's protection and the locks of content controls. A check raises
/// kNotAvailable with a sentence for the user.
class EditPermission {
  public:
    explicit EditPermission(opc::Package& package) : package_(package) {}

    /// Checks a replacement of the text between two positions.
    void checkText(const Story& story, CharacterPosition start, CharacterPosition end);
    /// Checks an insertion of marks at two positions.
    void checkMarks(const Story& story, CharacterPosition start, CharacterPosition end);

  private:
    void checkDocument(const Story& story, CharacterPosition position);
    opc::DocumentProtection protection();

    opc::Package& package_;
    std::optional<opc::DocumentProtection> protection_;  ///< once it was read
};

}  // namespace mergeloom::embedded
