#pragma once

#include "office/opc/Package.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace mergeloom::graft {

/// The styles of a document by name. Exports and originals have the same names of styles, but not the same
/// ids.
class StyleNames {
  public:
    /// Raises kFileCouldNotBeRead for a damaged part.
    explicit StyleNames(opc::Package& package);

    /// Returns the name of a style, or an empty text if there is none.
    [[nodiscard]] std::string nameOf(const std::string& id) const;
    /// Returns the id of the style with the name or, if there is none, with the name in other letter case.
    [[nodiscard]] std::optional<std::string> idOf(const std::string& name) const;
    void add(const std::string& id, const std::string& name);

  private:
    std::unordered_map<std::string, std::string> names_;
    std::unordered_map<std::string, std::string> ids_;
    std::unordered_map<std::string, std::string> foldedIds_;
};

}  // namespace mergeloom::graft
