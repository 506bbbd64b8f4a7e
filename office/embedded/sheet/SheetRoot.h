#pragma once

#include "office/embedded/sheet/XmlAttributes.h"

#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The start tag of the worksheet element and the namespaces that it declares.
class SheetRoot {
  public:
    /// Raises BadXml when the element is not of SpreadsheetML's namespace.
    explicit SheetRoot(std::string_view tag);

    [[nodiscard]] bool isStrict() const { return isStrict_; }
    /// The prefix that is declared for a namespace; empty when there is none.
    [[nodiscard]] std::string prefixFor(std::string_view uri) const;
    /// The preferred prefix, with a number behind it where it stands for another namespace.
    [[nodiscard]] std::string freePrefix(std::string_view preferred) const;

    void declare(const std::string& prefix, const std::string& uri);
    void takeBack(const std::string& prefix);

    [[nodiscard]] bool isChanged() const { return declared_ > 0; }
    [[nodiscard]] const XmlTag& tag() const { return tag_; }

  private:
    XmlTag tag_;
    bool isStrict_ = false;
    int declared_ = 0;
};

}  // namespace mergeloom::embedded
