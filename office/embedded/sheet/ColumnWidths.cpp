#include "office/embedded/sheet/ColumnWidths.h"

#include "office/embedded/sheet/FontMetrics.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/model/excel/CellAddress.h"
#include "office/model/excel/Range.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// The fractions of a digit's width in which a file's widths are counted.
constexpr double kParts = 256;

}  // namespace

FileColumnUnits::FileColumnUnits(const CellFont& defaultFont) : ColumnUnits(digitWidth(defaultFont)) {}

int FileColumnUnits::defaultPixels(int baseCharacters) const {
    constexpr int kStep = 8;
    const int pixels = baseCharacters * digit() + padding();
    return (pixels + kStep - 1) / kStep * kStep;
}

int FileColumnUnits::widestPixels() const {
    return pixelsOf(excel::kWidestColumn);
}

int FileColumnUnits::pixelsOfFileWidth(double width) const {
    const double bounded = std::clamp(width, 0.0, fileWidthOf(widestPixels()));
    const double half = std::trunc(kParts / 2 / digit());
    return static_cast<int>((kParts * bounded + half) / kParts * digit());
}

double FileColumnUnits::fileWidthOf(int pixels) const {
    return std::trunc(pixels * kParts / digit()) / kParts;
}

ColumnDefinitions::ColumnDefinitions(const std::string& xml, std::string listName, std::string elementName)
    : listName_(std::move(listName)), elementName_(std::move(elementName)) {
    XmlScanner scanner(xml);
    while (scanner.next()) {
        if (scanner.kind() == TagKind::End || scanner.name() != elementName_) continue;
        const int first = findNumber(scanner.attributes(), "min").value_or(0);
        const int last =
            std::min(findNumber(scanner.attributes(), "max").value_or(first), excel::kLastColumn);
        if (first < 1 || first > last) continue;
        put({first, last, XmlTag(scanner.tag())});
    }
}

std::optional<ColumnDefinition> ColumnDefinitions::find(int column) const {
    const auto found = definitions_.lower_bound(column);
    if (found == definitions_.end() || found->second.first > column) return {};
    return found->second;
}

ColumnDefinition ColumnDefinitions::newDefinition(int column) const {
    return {column, column, XmlTag("<" + elementName_ + " min=\"\" max=\"\"/>")};
}

void ColumnDefinitions::put(const ColumnDefinition& definition) {
    erase(definition.first, definition.last);
    add(definition.first, definition.last, definition.tag);
}

void ColumnDefinitions::erase(int first, int last) {
    auto next = definitions_.lower_bound(first);
    while (next != definitions_.end() && next->second.first <= last) {
        const ColumnDefinition former = std::move(next->second);
        definitions_.erase(next);
        if (former.first < first) add(former.first, first - 1, former.tag);
        if (former.last > last) add(last + 1, former.last, former.tag);
        next = definitions_.upper_bound(former.last);
    }
}

std::string ColumnDefinitions::toXml() const {
    if (definitions_.empty()) return {};
    std::string xml = "<" + listName_ + ">";
    for (const auto& [last, definition] : definitions_) {
        XmlTag tag = definition.tag;
        tag.set("min", std::to_string(definition.first));
        tag.set("max", std::to_string(last));
        xml += tag.emptyTag();
    }
    return xml + "</" + listName_ + ">";
}

void ColumnDefinitions::add(int first, int last, const XmlTag& tag) {
    definitions_.insert_or_assign(last, ColumnDefinition{first, last, tag});
}

}  // namespace mergeloom::embedded
