#pragma once

#include "base/Units.h"
#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Enumerations.h"

#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/awt/Size.hpp>
#include <cstddef>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// An object on a sheet's drawing layer, shared by shapes and pictures. Every member raises kObjectDeleted
/// after the object was deleted; those that change it raise kApplicationDefined for a protected sheet.
class CalcDrawnObject {
  public:
    CalcDrawnObject(CalcContentPtr content, std::size_t sheet, CalcShapeEntryPtr entry)
        : content_(std::move(content)), sheet_(sheet), entry_(std::move(entry)) {}

    /// Inserts a picture at a cell, in its natural size.
    static CalcDrawnObject insertPicture(const CalcContentPtr& content, std::size_t sheet,
                                         const excel::CellPosition& cell, const std::string& fileName);

    [[nodiscard]] const CalcContentPtr& content() const { return content_; }
    [[nodiscard]] std::size_t sheet() const { return sheet_; }
    [[nodiscard]] std::string name() const;
    [[nodiscard]] excel::MsoShapeType type() const;
    [[nodiscard]] excel::CellPosition topLeftCell() const;
    [[nodiscard]] Points left() const { return units().pointsOf(place().X); }
    [[nodiscard]] Points top() const { return pointsOf(place().Y); }
    [[nodiscard]] Points width() const { return units().pointsOf(size().Width); }
    [[nodiscard]] Points height() const { return pointsOf(size().Height); }

    void setName(const std::string& name) const;
    void setLeft(Points left) const { setPlace({units().lengthOf(left), place().Y}); }
    void setTop(Points top) const { setPlace({place().X, lengthOf(top)}); }
    void setWidth(Points width) const { setSize({units().lengthOf(width), size().Height}); }
    void setHeight(Points height) const { setSize({size().Width, lengthOf(height)}); }
    void remove() const;

  private:
    [[nodiscard]] const CalcColumnUnits& units() const { return content_->columnUnits(); }
    [[nodiscard]] css::awt::Point place() const;
    [[nodiscard]] css::awt::Size size() const;
    void setPlace(const css::awt::Point& place) const;
    void setSize(css::awt::Size wanted) const;
    void moveTo(const css::awt::Point& place) const;
    [[nodiscard]] CalcShapeEntry& entry() const;
    [[nodiscard]] CalcShapeEntry& changedEntry() const;
    [[nodiscard]] CalcShapeTable& table() const { return content_->sheet(sheet_).shapes(); }

    CalcContentPtr content_;
    std::size_t sheet_;
    CalcShapeEntryPtr entry_;
};

}  // namespace mergeloom::libreoffice
