#pragma once

#include "office/libreoffice/session/Uno.h"

#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// The passwords of open documents.
class DocumentPasswords {
  public:
    /// Notes a password; an empty one means none.
    void note(const DocumentReference& document, const std::string& password);
    void forget(const DocumentReference& document) { note(document, {}); }
    /// Returns the document's password; empty for none.
    [[nodiscard]] std::string of(const DocumentReference& document) const;

  private:
    std::vector<std::pair<DocumentReference, std::string>> passwords_;
};

}  // namespace mergeloom::libreoffice
