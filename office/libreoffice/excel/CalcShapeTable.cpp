#include "office/libreoffice/excel/CalcShapeTable.h"

#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

void setName(const CalcShapeEntry& entry, const std::string& name) {
    Reference<css::container::XNamed>(entry.shape, UNO_QUERY_THROW)->setName(toUno(name));
}

// The SDK calls the interface deprecated, but a sheet has no other one for its drawing page.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
Reference<css::drawing::XDrawPage> pageOf(const Reference<css::sheet::XSpreadsheet>& sheet) {
    return Reference<css::drawing::XDrawPageSupplier>(sheet, UNO_QUERY_THROW)->getDrawPage();
}
#pragma GCC diagnostic pop

void setVisible(const CalcShapeEntry& entry, bool isVisible) {
    const Reference<css::beans::XPropertySet> properties(entry.shape, UNO_QUERY_THROW);
    properties->setPropertyValue("Visible", css::uno::Any(isVisible));
}

}  // namespace

CalcShapeTable::CalcShapeTable(OfficeConnection& connection, const Reference<css::sheet::XSpreadsheet>& sheet)
    : connection_(connection) {
    connection_.call([&] {
        page_ = pageOf(sheet);
        for (sal_Int32 index = 0, count = page_->getCount(); index < count; ++index) {
            const Reference<css::drawing::XShape> shape(page_->getByIndex(index), UNO_QUERY_THROW);
            const Reference<css::container::XNamed> named(shape, UNO_QUERY);
            const std::string name = named.is() ? fromUno(named->getName()) : "";
            list(std::make_shared<CalcShapeEntry>(CalcShapeEntry{shape, name}), all_.size());
        }
    });
}

CalcShapeEntryPtr CalcShapeTable::find(const std::string& name) const {
    const auto found = byName_.find(foldCase(name));
    return found == byName_.end() ? nullptr : found->second;
}

CalcShapeEntryPtr CalcShapeTable::append(const Reference<css::drawing::XShape>& shape) {
    auto entry = std::make_shared<CalcShapeEntry>(CalcShapeEntry{shape, {}});
    connection_.call([&] { page_->add(shape); });
    list(entry, all_.size());
    return entry;
}

void CalcShapeTable::append(const CalcShapeEntryPtr& entry, const Reference<css::drawing::XShape>& shape) {
    connection_.call([&] {
        page_->add(shape);
        entry->shape = shape;
        setName(*entry, entry->name);
    });
    list(entry, all_.size());
}

void CalcShapeTable::rename(const CalcShapeEntryPtr& entry, const std::string& name) {
    connection_.call([&] { setName(*entry, name); });
    const std::size_t position = positionOf(entry);
    unlist(entry);
    entry->name = name;
    list(entry, position);
}

void CalcShapeTable::hide(const CalcShapeEntryPtr& entry) {
    connection_.call([&] { setVisible(*entry, false); });
    unlist(entry);
}

void CalcShapeTable::restore(const CalcShapeEntryPtr& entry, std::size_t position) {
    connection_.call([&] { setVisible(*entry, true); });
    list(entry, std::min(position, all_.size()));
}

void CalcShapeTable::remove(const CalcShapeEntryPtr& entry) {
    connection_.call([&] { page_->remove(entry->shape); });
    if (!entry->isDeleted) unlist(entry);
}

std::size_t CalcShapeTable::positionOf(const CalcShapeEntryPtr& entry) const {
    return static_cast<std::size_t>(std::ranges::find(all_, entry) - all_.begin());
}

void CalcShapeTable::list(const CalcShapeEntryPtr& entry, std::size_t position) {
    entry->isDeleted = false;
    all_.insert(all_.begin() + static_cast<std::ptrdiff_t>(position), entry);
    byName_.emplace(foldCase(entry->name), entry);
}

void CalcShapeTable::unlist(const CalcShapeEntryPtr& entry) {
    entry->isDeleted = true;
    std::erase(all_, entry);
    const auto [first, last] = byName_.equal_range(foldCase(entry->name));
    const auto found =
        std::find_if(first, last, [&](const auto& candidate) { return candidate.second == entry; });
    if (found != last) byName_.erase(found);
}

}  // namespace mergeloom::libreoffice
