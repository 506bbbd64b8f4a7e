#pragma once

#include "xml/XmlNode.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace pugi {
class xml_node;
}

namespace mergeloom {

/// Tells which controls have a bound value in the Data part. The rules define that by searches for a Control
/// element by its name, each through the whole part; the index answers the same without searching.
class BoundValueIndex {
  public:
    /// Indexes what is below a Data element; none has nothing below it. Names are kept by reference.
    explicit BoundValueIndex(XmlNode data);

    /// Whether the first control of that name, below the first control of the outer name unless that is
    /// empty, has a BoundValue element anywhere below it. A name with both kinds of quote is looked for
    /// without its double quotes, and an empty one stands for any control that has a name.
    [[nodiscard]] bool hasBoundValue(std::string_view outerName, std::string_view name) const;

  private:
    /// Controls are numbered in document order, so those below a control follow it without a gap.
    using Number = std::uint32_t;

    struct Control {
        Number endBelow;  ///< one past the last control below this one
        bool hasBoundValue;
    };
    struct NamedControl {
        std::string_view name;
        Number number;

        friend bool operator<(const NamedControl& a, const NamedControl& b) {
            return a.name != b.name ? a.name < b.name : a.number < b.number;
        }
    };

    bool addBelow(pugi::xml_node parent);
    bool addControl(pugi::xml_node element);
    [[nodiscard]] Number first(std::string_view name, Number from, Number end) const;

    std::vector<Control> controls_;
    std::vector<NamedControl> byName_;  // in the order of names, then of numbers
    std::vector<Number> named_;         // the controls that have a name, in their order
};

}  // namespace mergeloom
