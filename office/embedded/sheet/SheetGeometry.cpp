#include "office/embedded/sheet/SheetGeometry.h"

#include "office/embedded/sheet/ColumnWidths.h"
#include "office/embedded/sheet/FontMetrics.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/model/excel/Range.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <numeric>
#include <vector>

namespace mergeloom::embedded {

namespace {

std::uint16_t bounded(int pixels) {
    return static_cast<std::uint16_t>(std::clamp(pixels, 0, int{std::numeric_limits<std::uint16_t>::max()}));
}

}  // namespace

/// The sizes of a sheet's columns or rows in pixels, and their sums. Nearly all have the default size; the
/// others are stored in blocks, so that a sum adds one number for each block and the sizes of one block at
/// most.
class AxisSizes {
  public:
    /// Creates columns or rows from 1 to the last one, all of the default size.
    AxisSizes(int last, int defaultPixels);

    [[nodiscard]] int last() const { return last_; }
    [[nodiscard]] int size(int index) const;
    void setSize(int index, int pixels);

    /// Returns the sum of all sizes before the index; for last() + 1 the size of the sheet.
    [[nodiscard]] std::int64_t before(int index) const;
    /// Returns the index of the column or row that contains the pixel at a distance from the edge; never a
    /// hidden one. Returns the last index for a distance beyond the sheet, the first one for a negative
    /// distance.
    [[nodiscard]] int at(std::int64_t pixel) const;

  private:
    static constexpr int kBlockSize = 1024;

    struct Block {
        std::int64_t sum = 0;
        std::unique_ptr<std::vector<std::uint16_t>> sizes{};  ///< null while all have the default size
    };

    [[nodiscard]] int sizeIn(const Block& block, int offset) const;
    [[nodiscard]] int countIn(std::size_t block) const;

    int last_;
    std::uint16_t default_;
    std::vector<Block> blocks_;
};

AxisSizes::AxisSizes(int last, int defaultPixels)
    : last_(last),
      default_(bounded(defaultPixels)),
      blocks_(static_cast<std::size_t>((last + kBlockSize - 1) / kBlockSize)) {
    for (std::size_t i = 0; i < blocks_.size(); ++i)
        blocks_[i].sum = std::int64_t{countIn(i)} * default_;
}

int AxisSizes::size(int index) const {
    return sizeIn(blocks_[static_cast<std::size_t>((index - 1) / kBlockSize)], (index - 1) % kBlockSize);
}

void AxisSizes::setSize(int index, int pixels) {
    if (size(index) == bounded(pixels)) return;
    const auto number = static_cast<std::size_t>((index - 1) / kBlockSize);
    Block& block = blocks_[number];
    if (!block.sizes) {
        const auto count = static_cast<std::size_t>(countIn(number));
        block.sizes = std::make_unique<std::vector<std::uint16_t>>(count, default_);
    }
    std::uint16_t& size = (*block.sizes)[static_cast<std::size_t>((index - 1) % kBlockSize)];
    block.sum -= size;
    size = bounded(pixels);
    block.sum += size;
}

std::int64_t AxisSizes::before(int index) const {
    const int count = index - 1;
    const auto whole = static_cast<std::size_t>(count / kBlockSize);
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < whole; ++i)
        sum += blocks_[i].sum;
    const int rest = count % kBlockSize;
    if (rest == 0) return sum;
    const Block& block = blocks_[whole];
    if (!block.sizes) return sum + std::int64_t{rest} * default_;
    return std::accumulate(block.sizes->begin(), block.sizes->begin() + rest, sum);
}

int AxisSizes::at(std::int64_t pixel) const {
    std::size_t number = 0;
    while (number < blocks_.size() && pixel >= blocks_[number].sum)
        pixel -= blocks_[number++].sum;
    if (number == blocks_.size()) return last_;
    int offset = 0;
    while (pixel >= sizeIn(blocks_[number], offset))
        pixel -= sizeIn(blocks_[number], offset++);
    return static_cast<int>(number) * kBlockSize + offset + 1;
}

int AxisSizes::sizeIn(const Block& block, int offset) const {
    return block.sizes ? (*block.sizes)[static_cast<std::size_t>(offset)] : default_;
}

int AxisSizes::countIn(std::size_t block) const {
    return std::min(kBlockSize, last_ - static_cast<int>(block) * kBlockSize);
}

namespace {

constexpr double kPointsPerCellPixel = 0.75;
constexpr std::int64_t kEmuPerPixel = 9525;
constexpr int kBaseCharacters = 8;

enum class Fit { Own, Best };

int pixelsOf(Points points) {
    return static_cast<int>(
        std::lround(std::clamp(points.value, 0.0, excel::kHighestRow.value) / kPointsPerCellPixel));
}

Points pointsOf(std::int64_t pixels) {
    return {static_cast<double>(pixels) * kPointsPerCellPixel};
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

AxisSizes columnSizes(const SheetPart& sheet, const FileColumnUnits& units) {
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

/// The column or row at a distance, and the offset from its edge.
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
    PartState state;  ///< tracks changes of the columns
    FileColumnUnits units;
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
    return data_->units.widthOf(data_->columns.size(column));
}

void SheetGeometry::setColumnWidth(int column, ColumnWidth width) {
    data_->setColumn(column, data_->units.pixelsOf(width), Fit::Own);
}

void SheetGeometry::fitColumn(int column, double pixels) {
    const FileColumnUnits& units = data_->units;
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
