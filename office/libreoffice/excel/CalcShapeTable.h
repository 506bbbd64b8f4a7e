#pragma once

#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// A shape of a sheet. Its name is cached, since shapes are found by their names.
struct CalcShapeEntry {
    Reference<css::drawing::XShape> shape;
    std::string name;
    bool isDeleted = false;
};

using CalcShapeEntryPtr = std::shared_ptr<CalcShapeEntry>;

/// The shapes of a sheet from back to front, read once. A shape that a step deleted is only hidden as long as
/// the step can be undone, since UNO cannot restore a removed shape.
class CalcShapeTable {
  public:
    CalcShapeTable(OfficeConnection& connection, const Reference<css::sheet::XSpreadsheet>& sheet);

    /// Returns the shapes that are not deleted.
    [[nodiscard]] const std::vector<CalcShapeEntryPtr>& all() const { return all_; }
    /// Returns the first shape of that name, ignoring case; null if there is none.
    [[nodiscard]] CalcShapeEntryPtr find(const std::string& name) const;

    CalcShapeEntryPtr append(const Reference<css::drawing::XShape>& shape);
    /// Lists a removed entry again, with another shape and under its former name.
    void append(const CalcShapeEntryPtr& entry, const Reference<css::drawing::XShape>& shape);
    void rename(const CalcShapeEntryPtr& entry, const std::string& name);
    void hide(const CalcShapeEntryPtr& entry);
    void restore(const CalcShapeEntryPtr& entry, std::size_t position);
    /// Removes the shape permanently.
    void remove(const CalcShapeEntryPtr& entry);
    [[nodiscard]] std::size_t positionOf(const CalcShapeEntryPtr& entry) const;

  private:
    void list(const CalcShapeEntryPtr& entry, std::size_t position);
    void unlist(const CalcShapeEntryPtr& entry);

    OfficeConnection& connection_;
    Reference<css::drawing::XDrawPage> page_;
    std::vector<CalcShapeEntryPtr> all_;
    std::multimap<std::string, CalcShapeEntryPtr> byName_;
};

}  // namespace mergeloom::libreoffice
