#pragma once

#include "office/embedded/sheet/XmlAttributes.h"

#include <map>
#include <optional>
#include <string>

namespace mergeloom::embedded {

/// What a sheet says of columns that stand side by side (ECMA-376 Part 1, 18.3.1.13).
struct ColumnDefinition {
    int first = 0;
    int last = 0;
    XmlTag tag;  ///< its min and max are not kept up to date
};

/// The definitions of a sheet's columns as a list that can be changed in its middle. Of definitions that
/// overlap, which no valid sheet has, the later one counts.
class ColumnDefinitions {
  public:
    /// Takes the XML of the section "cols", which may be empty, and the names of its elements.
    ColumnDefinitions(const std::string& xml, std::string listName, std::string elementName);

    [[nodiscard]] std::optional<ColumnDefinition> find(int column) const;
    /// By their last columns.
    [[nodiscard]] const std::map<int, ColumnDefinition>& all() const { return definitions_; }
    /// One for a column that has none yet.
    [[nodiscard]] ColumnDefinition newDefinition(int column) const;

    /// Lets the definition alone hold for its columns; what held for others as well is split.
    void put(const ColumnDefinition& definition);
    void erase(int first, int last);

    /// Empty when there are none.
    [[nodiscard]] std::string toXml() const;

  private:
    void add(int first, int last, const XmlTag& tag);

    std::string listName_;
    std::string elementName_;
    std::map<int, ColumnDefinition> definitions_;
};

}  // namespace mergeloom::embedded
