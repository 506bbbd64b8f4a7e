#pragma once

#include "office/com/automation/OfficeErrors.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::com {

/// The documents that were opened through an office that was started here.
template <class Document>
class OwnDocuments {
  public:
    [[nodiscard]] const std::vector<std::shared_ptr<Document>>& all() const { return documents_; }
    std::shared_ptr<Document> add(std::shared_ptr<Document> document) {
        documents_.push_back(std::move(document));
        return documents_.back();
    }
    void remove(const Document& document) {
        std::erase_if(documents_, [&](const auto& candidate) { return candidate.get() == &document; });
    }
    /// Closes all documents, even if some cannot be closed.
    template <typename Close>
    void closeAll(const Close& close) {
        for (const std::shared_ptr<Document>& document : std::exchange(documents_, {}))
            ignoringErrors([&] { close(*document); });
    }

  private:
    std::vector<std::shared_ptr<Document>> documents_;
};

}  // namespace mergeloom::com
