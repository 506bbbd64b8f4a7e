#pragma once

#include "xml/XmlNode.h"

#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// The collection that maps the keys of tree nodes to elements of the structure document. Its keys are
/// running numbers followed by "k", from "1k" on.
class XmlNodeCollection {
  public:
    /// Adds an element under the next key and returns that key's number.
    int Add(XmlNode element);
    /// The element under a key; none for a key that the collection does not hold. Case does not count.
    [[nodiscard]] XmlNode Item(std::string_view key) const;
    [[nodiscard]] int Count() const { return static_cast<int>(elements_.size()); }

  private:
    std::vector<XmlNode> elements_;
};

}  // namespace mergeloom
