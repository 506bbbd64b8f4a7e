#include "office/libreoffice/excel/CalcDrawnObject.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/excel/CalcGraphic.h"
#include "office/libreoffice/excel/CalcSizes.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/table/XCell.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr const char* kPictureShape = "com.sun.star.drawing.GraphicObjectShape";
constexpr const char* kObjectShape = "com.sun.star.drawing.OLE2Shape";
/// The class of Calc's charts.
constexpr const char* kChartClass = "12DCAE26-281F-416F-A234-C3086127382E";

Reference<css::beans::XPropertySet> propertiesOf(const CalcShapeEntry& entry) {
    return {entry.shape, UNO_QUERY_THROW};
}

/// Makes the shape move with the cell and keep its size.
void anchor(const CalcShapeEntry& entry, const Reference<css::table::XCell>& cell) {
    const Reference<css::beans::XPropertySet> properties = propertiesOf(entry);
    properties->setPropertyValue("Anchor", css::uno::Any(cell));
    properties->setPropertyValue("ResizeWithCell", css::uno::Any(false));
}

/// The last of a sheet's columns or rows that starts at or before a length. A place that was rounded may lie
/// a hundredth of a millimetre before the edge that is meant.
template <typename Start>
int lineAt(int count, sal_Int32 length, const Start& startOf) {
    int low = 1;
    int high = count;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        (startOf(middle) <= length + 1 ? low : high) = startOf(middle) <= length + 1 ? middle : middle - 1;
    }
    return low;
}

excel::CellPosition cellAt(CalcContent& content, std::size_t sheet, const css::awt::Point& place) {
    const auto leftOf = [&](int column) { return cellPlace(content, sheet, {1, column}).X; };
    const auto topOf = [&](int row) { return cellPlace(content, sheet, {row, 1}).Y; };
    return {lineAt(excel::kLastRow, place.Y, topOf), lineAt(excel::kLastColumn, place.X, leftOf)};
}

bool holds(CalcContent& content, std::size_t sheet, const excel::CellPosition& cell,
           const css::awt::Point& place) {
    const css::awt::Point start = cellPlace(content, sheet, cell);
    const css::awt::Size size = blockSize(content, sheet, {cell, cell});
    const sal_Int32 right = place.X + 1 - start.X;
    const sal_Int32 down = place.Y + 1 - start.Y;
    return right >= 0 && right < size.Width && down >= 0 && down < size.Height;
}

std::optional<excel::CellPosition> anchorOf(CalcContent& content, const CalcShapeEntry& entry) {
    return content.connection().call([&]() -> std::optional<excel::CellPosition> {
        const Reference<css::sheet::XCellAddressable> cell(propertiesOf(entry)->getPropertyValue("Anchor"),
                                                           UNO_QUERY);
        if (!cell.is()) return {};
        const css::table::CellAddress address = cell->getCellAddress();
        return excel::CellPosition{address.Row + 1, address.Column + 1};
    });
}

}  // namespace

CalcDrawnObject CalcDrawnObject::insertPicture(const CalcContentPtr& content, std::size_t sheet,
                                               const excel::CellPosition& cell, const std::string& fileName) {
    CalcSheet& target = content->sheet(sheet);
    target.checkMayChange("pictures");
    const CalcGraphic graphic = readGraphic(content->connection(), content->files(), fileName);
    const css::awt::Point place = cellPlace(*content, sheet, cell);
    const css::awt::Size size{content->columnUnits().lengthOf(graphic.width), lengthOf(graphic.height)};
    content->touch();
    CalcShapeTable& table = target.shapes();
    const CalcShapeEntryPtr entry = table.append(content->connection().call([&] {
        return Reference<css::drawing::XShape>(
            content->factory()->createInstance(OUString::createFromAscii(kPictureShape)), UNO_QUERY_THROW);
    }));
    content->undo().keep([&table, entry] { table.remove(entry); });
    content->connection().call([&] {
        propertiesOf(*entry)->setPropertyValue("Graphic", css::uno::Any(graphic.graphic));
        anchor(*entry, target.cell(cell));
        entry->shape->setSize(size);
        entry->shape->setPosition(place);
    });
    table.rename(entry, "Picture " + std::to_string(table.all().size()));
    return {content, sheet, entry};
}

CalcShapeEntry& CalcDrawnObject::entry() const {
    if (entry_->isGone) throw AutomationError(kObjectDeleted, "The object has been deleted.");
    return *entry_;
}

CalcShapeEntry& CalcDrawnObject::changedEntry() const {
    CalcShapeEntry& changed = entry();
    content_->sheet(sheet_).checkMayChange("pictures");
    content_->touch();
    return changed;
}

std::string CalcDrawnObject::name() const {
    return entry().name;
}

excel::MsoShapeType CalcDrawnObject::type() const {
    return content_->connection().call([&] {
        const Reference<css::lang::XServiceInfo> kind(entry().shape, UNO_QUERY_THROW);
        if (kind->supportsService(OUString::createFromAscii(kPictureShape)))
            return excel::MsoShapeType::msoPicture;
        OUString objectClass;
        if (kind->supportsService(OUString::createFromAscii(kObjectShape)))
            propertiesOf(entry())->getPropertyValue("CLSID") >>= objectClass;
        const bool isChart = equalsIgnoringAsciiCase(fromUno(objectClass), kChartClass);
        return isChart ? excel::MsoShapeType::msoChart : excel::MsoShapeType::msoShapeTypeMixed;
    });
}

excel::CellPosition CalcDrawnObject::topLeftCell() const {
    const css::awt::Point corner = place();
    const std::optional<excel::CellPosition> anchored = anchorOf(*content_, entry());
    if (anchored && holds(*content_, sheet_, *anchored, corner)) return *anchored;
    return cellAt(*content_, sheet_, corner);
}

/// Texts that waited may make rows higher.
css::awt::Point CalcDrawnObject::place() const {
    content_->pending().settle();
    return content_->connection().call([&] { return entry().shape->getPosition(); });
}

css::awt::Size CalcDrawnObject::size() const {
    return content_->connection().call([&] { return entry().shape->getSize(); });
}

void CalcDrawnObject::setName(const std::string& name) const {
    const std::string former = changedEntry().name;
    table().rename(entry_, name);
    content_->undo().keep([table = &table(), entry = entry_, former] { table->rename(entry, former); });
}

void CalcDrawnObject::setPlace(const css::awt::Point& wanted) const {
    static_cast<void>(changedEntry());
    const css::awt::Point former = place();
    moveTo(wanted);
    // The content owns the step, so the step must not own the content.
    content_->undo().keep([content = std::weak_ptr(content_), sheet = sheet_, entry = entry_, former] {
        if (const CalcContentPtr owner = content.lock()) CalcDrawnObject(owner, sheet, entry).moveTo(former);
    });
}

/// A shape moves with the cell to which it was tied, not with the one to which it was moved.
void CalcDrawnObject::moveTo(const css::awt::Point& wanted) const {
    content_->connection().call([&] { entry().shape->setPosition(wanted); });
    const excel::CellPosition cell = topLeftCell();
    if (anchorOf(*content_, entry()) == cell) return;
    content_->connection().call([&] {
        anchor(entry(), content_->sheet(sheet_).cell(cell));
        entry().shape->setPosition(wanted);
    });
}

void CalcDrawnObject::setSize(css::awt::Size wanted) const {
    // Thinner than a hundredth of a millimetre is nothing.
    wanted = {std::max<sal_Int32>(1, wanted.Width), std::max<sal_Int32>(1, wanted.Height)};
    const CalcShapeEntry& changed = changedEntry();
    const css::awt::Size former = size();
    content_->connection().call([&] { changed.shape->setSize(wanted); });
    content_->undo().keep([content = content_.get(), shape = changed.shape, former] {
        content->connection().call([&] { shape->setSize(former); });
    });
}

void CalcDrawnObject::remove() const {
    static_cast<void>(changedEntry());
    CalcShapeTable& shapes = table();
    if (!content_->undo().isRecording()) return shapes.remove(entry_);
    const std::size_t position = shapes.positionOf(entry_);
    shapes.hide(entry_);
    content_->undo().keep([&shapes, entry = entry_, position] { shapes.showAgain(entry, position); });
    content_->undo().whenForgotten([&shapes, entry = entry_] { shapes.remove(entry); });
}

}  // namespace mergeloom::libreoffice
