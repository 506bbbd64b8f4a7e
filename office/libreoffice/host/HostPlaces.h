#pragma once

#include "office/libreoffice/host/CaretPlacer.h"
#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The named places of the document that the user edits: Writer's bookmarks, or Calc's names. The changes
/// are steps that the user can undo. All members are to be called within a call of the connection.
class HostPlaces {
  public:
    explicit HostPlaces(const DocumentReference& document);

    [[nodiscard]] std::vector<std::string> names() const;
    /// Returns the places at a target in the view. Equal paragraphs cannot be distinguished.
    [[nodiscard]] std::vector<std::string> at(const CaretTarget& target,
                                              const Reference<css::frame::XController>& view) const;
    /// Selects the text or the cells of a place. This member and those below raise kCommandFailed with a
    /// sentence when there is no such place.
    void select(const std::string& name, const Reference<css::frame::XController>& view) const;
    /// Raises kCommandFailed also when no place can have the new name, or another one has it.
    void rename(const std::string& name, const std::string& newName) const;
    void remove(const std::string& name) const;

  private:
    [[nodiscard]] Reference<css::uno::XInterface> find(const std::string& name) const;
    template <typename IsThere>
    [[nodiscard]] std::vector<std::string> placesThat(const IsThere& isThere) const;
    void checkNewName(const std::string& name, const std::string& newName) const;

    Reference<css::container::XNameAccess> places_;
    Reference<css::sheet::XNamedRanges> cells_;  ///< the same places in a workbook
};

}  // namespace mergeloom::libreoffice
