#pragma once

#include "office/graft/CanonicalXml.h"
#include "office/opc/WordNames.h"

#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::graft {

/// Translates a reference to another part from an export to the original: the id of a style or the number of
/// a list, by the local names of the element and its parent. Returns none to omit the property. Raises
/// Refusal.
using ValueTranslation =
    std::function<std::optional<std::string>(std::string_view element, const std::string& value)>;

/// The difference between the properties of two exports (of a run, a paragraph or a section), property by
/// property and attribute by attribute. Applied to the original's properties, which may express the same in
/// other ways, it changes only the properties that the user changed.
class PropertyDelta {
  public:
    /// Either element may be none.
    PropertyDelta(pugi::xml_node former, pugi::xml_node now, const CanonicalXml& canonical);

    [[nodiscard]] bool isEmpty() const { return changes_.empty(); }
    /// Changes the children of the properties. The names are those of the part that contains them.
    void applyTo(pugi::xml_node properties, const opc::WordNames& names,
                 const ValueTranslation& translate) const;

  private:
    struct Change {
        pugi::xml_node former;
        pugi::xml_node now;
    };

    static void applyInside(const PropertyDelta& inner, const Change& change, pugi::xml_node properties,
                            const opc::WordNames& names, const ValueTranslation& translate);

    std::vector<Change> changes_;
};

}  // namespace mergeloom::graft
