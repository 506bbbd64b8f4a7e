#include "office/embedded/sheet/SheetGeometry.h"

#include "office/embedded/sheet/AxisSizes.h"
#include "office/embedded/sheet/ColumnDefinitions.h"
#include "office/embedded/sheet/ColumnUnits.h"
#include "office/embedded/sheet/FontMetrics.h"
#include "office/embedded/sheet/PartState.h"
#include "office/embedded/sheet/SheetSection.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace mergeloom::embedded {

namespace {

constexpr double kPointsPerPixel = 0.75;
constexpr std::int64_t kEmuPerPixel = 9525;
constexpr double kHighestRow = 409.5;
constexpr int kBaseCharacters = 8;

enum class Fit { Own, Best };

int pixelsOf(Points points) {
    return static_cast<int>(std::lround(std::clamp(points.value, 0.0, kHighestRow) / kPointsPerPixel));
}

Points pointsOf(std::int64_t pixels) {
    return {static_cast<double>(pixels) * kPointsPerPixel};
}

double numberIn(std::string_view attributes, std::string_view name, double fallback) {
    const std::string text(findAttribute(attributes, name).value_or(""));
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    return end != text.c_str() && std::isfinite(number) && number >= 0 ? number : fallback;
}

std::string textOfNumber(double number) {
    std::array<char, 32> buffer{};
    const std::to_chars_result result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
    return {buffer.data(), result.ptr};
}

AxisSizes columnSizes(const SheetPart& sheet, const ColumnUnits& units) {
    const SheetSection section(sheet, "sheetFormatPr");
    const pugi::xml_attribute width = section.root().attribute("defaultColWidth");
    if (width) return {excel::kLastColumn, units.pixelsOfFileWidth(width.as_double())};
    const int characters = section.root().attribute("baseColWidth").as_int(kBaseCharacters);
    return {excel::kLastColumn,
            std::min(units.defaultPixels(std::clamp(characters, 0, 255)), units.widestPixels())};
}

AxisSizes rowSizes(const SheetPart& sheet, const StyleSheet& styles) {
    const SheetSection section(sheet, "sheetFormatPr");
    if (section.root().attribute("zeroHeight").as_bool()) return {excel::kLastRow, 0};
    const pugi::xml_attribute height = section.root().attribute("defaultRowHeight");
    return {excel::kLastRow, pixelsOf({height ? height.as_double() : lineHeight(styles.defaultFont())})};
}

/// What an axis says of a distance: the index there and how far behind its edge.
struct AxisPlace {
    int index;
    Emu offset;
};

AxisPlace placeOn(const AxisSizes& axis, Points distance) {
    const auto emu = std::max<std::int64_t>(0, std::llround(distance.value * kEmuPerPoint));
    const int index = axis.at(emu / kEmuPerPixel);
    const std::int64_t offset = emu - axis.before(index) * kEmuPerPixel;
    return {index, {std::min(offset, axis.size(index) * kEmuPerPixel)}};
}

Emu distanceOn(const AxisSizes& axis, int index, Emu offset) {
    const std::int64_t inside = std::clamp<std::int64_t>(offset.value, 0, axis.size(index) * kEmuPerPixel);
    return {axis.before(index) * kEmuPerPixel + inside};
}

}  // namespace

class SheetGeometry::Data {
  public:
    Data(SheetPart& part, const StyleSheet& styles, UndoLog& log)
        : sheet(part),
          undo(log),
          state(log),
          units(styles.defaultFont()),
          columns(columnSizes(part, units)),
          rows(rowSizes(part, styles)),
          definitions(part.section("cols"), part.elementName("cols"), part.elementName("col")) {
        for (const auto& [last, definition] : definitions.all())
            readWidths(definition);
        sheet.forEachRowHeight(
            [&](const StoredRowHeight& row) { rows.setSize(row.row, pixelsOf({row.points})); });
    }

    void setColumn(int column, int pixels, Fit fit) {
        const std::optional<ColumnDefinition> former = definitions.find(column);
        ColumnDefinition changed = former ? *former : definitions.newDefinition(column);
        changed.first = changed.last = column;
        setWidth(changed.tag, pixels, fit);
        definitions.put(changed);
        const int formerPixels = columns.size(column);
        columns.setSize(column, pixels);
        state.change([this, column, former, formerPixels] {
            if (former) {
                definitions.put(*former);
            } else {
                definitions.erase(column, column);
            }
            columns.setSize(column, formerPixels);
        });
    }

    void setRow(int row, int pixels) {
        sheet.setRowHeight(row, pointsOf(pixels).value);
        undo.record([this, row, former = rows.size(row)] { rows.setSize(row, former); });
        rows.setSize(row, pixels);
    }

    SheetPart& sheet;
    UndoLog& undo;
    PartState state;  ///< of the columns
    ColumnUnits units;
    AxisSizes columns;
    AxisSizes rows;
    ColumnDefinitions definitions;

  private:
    void readWidths(const ColumnDefinition& definition) {
        const std::string_view attributes = definition.tag.attributes();
        const bool isHidden = isSet(attributes, "hidden");
        if (!isHidden && !findAttribute(attributes, "width")) return;
        const int pixels = isHidden ? 0 : units.pixelsOfFileWidth(numberIn(attributes, "width", 0));
        for (int column = definition.first; column <= definition.last; ++column)
            columns.setSize(column, pixels);
    }

    void setWidth(XmlTag& tag, int pixels, Fit fit) const {
        tag.set("width", textOfNumber(units.fileWidthOf(pixels)));
        tag.set("customWidth", "1");
        tag.remove("hidden");
        if (pixels == 0) tag.set("hidden", "1");
        tag.remove("bestFit");
        if (fit == Fit::Best) tag.set("bestFit", "1");
    }
};

SheetGeometry::SheetGeometry(SheetPart& sheet, const StyleSheet& styles, UndoLog& undo)
    : data_(std::make_unique<Data>(sheet, styles, undo)) {}

SheetGeometry::~SheetGeometry() = default;

ColumnWidth SheetGeometry::columnWidth(int column) const {
    return data_->units.shownWidthOf(data_->columns.size(column));
}

void SheetGeometry::setColumnWidth(int column, ColumnWidth width) {
    data_->setColumn(column, data_->units.pixelsOf(width), Fit::Own);
}

void SheetGeometry::fitColumn(int column, double pixels) {
    const ColumnUnits& units = data_->units;
    const double wanted = std::ceil(std::max(pixels, 0.0)) + units.padding();
    const double widest = units.widestPixels();
    data_->setColumn(column, static_cast<int>(std::min(wanted, widest)), Fit::Best);
}

Points SheetGeometry::rowHeight(int row) const {
    return pointsOf(data_->rows.size(row));
}

void SheetGeometry::setRowHeight(int row, Points height) {
    data_->setRow(row, pixelsOf(height));
}

Points SheetGeometry::left(int column) const {
    return pointsOf(data_->columns.before(column));
}

Points SheetGeometry::top(int row) const {
    return pointsOf(data_->rows.before(row));
}

SheetPlace SheetGeometry::placeAt(Points left, Points top) const {
    const AxisPlace column = placeOn(data_->columns, left);
    const AxisPlace row = placeOn(data_->rows, top);
    return {{row.index, column.index}, column.offset, row.offset};
}

Emu SheetGeometry::left(const SheetPlace& place) const {
    return distanceOn(data_->columns, place.cell.column, place.right);
}

Emu SheetGeometry::top(const SheetPlace& place) const {
    return distanceOn(data_->rows, place.cell.row, place.down);
}

bool SheetGeometry::isDirty() const {
    return data_->state.isDirty();
}

void SheetGeometry::store() {
    if (!isDirty()) return;
    data_->sheet.setSection("cols", data_->definitions.toXml());
    data_->state.setStored();
}

}  // namespace mergeloom::embedded
