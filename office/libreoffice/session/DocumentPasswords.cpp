#include "office/libreoffice/session/DocumentPasswords.h"

#include <algorithm>

namespace mergeloom::libreoffice {

void DocumentPasswords::note(const DocumentReference& document, const std::string& password) {
    std::erase_if(passwords_, [&](const auto& noted) { return noted.first == document; });
    if (!password.empty()) passwords_.emplace_back(document, password);
}

std::string DocumentPasswords::of(const DocumentReference& document) const {
    const auto found = std::ranges::find(passwords_, document, [](const auto& noted) { return noted.first; });
    return found == passwords_.end() ? std::string() : found->second;
}

}  // namespace mergeloom::libreoffice
