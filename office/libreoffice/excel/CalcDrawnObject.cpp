#include "office/libreoffice/excel/CalcDrawnObject.h"

#include "base/AutomationError.h"
#include "base/FileStore.h"
#include "base/Text.h"
#include "office/libreoffice/excel/CalcSizes.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/opc/PictureFile.h"

#include <algorithm>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/graphic/XGraphic.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/table/XCell.hpp>

namespace mergeloom::libreoffice {

namespace {

/// A picture that the office has read.
struct CalcGraphic {
    Reference<css::graphic::XGraphic> graphic;
    Points width, height;  ///< the natural size; 96 dots per inch if the file specifies none
};

css::uno::Sequence<sal_Int8> sequenceOf(const std::string& bytes) {
    return {reinterpret_cast<const sal_Int8*>(bytes.data()), static_cast<sal_Int32>(bytes.size())};
}

Reference<css::graphic::XGraphic> decode(OfficeConnection& connection, const std::string& bytes) try {
    return connection.call([&] {
        css::beans::PropertyValue input;
        input.Name = "InputStream";
        input.Value <<=
            css::io::SequenceInputStream::createStreamFromSequence(connection.context(), sequenceOf(bytes));
        return css::graphic::GraphicProvider::create(connection.context())
            ->queryGraphic(css::uno::Sequence<css::beans::PropertyValue>(&input, 1));
    });
} catch (const AutomationError& error) {
    if (error.number() == kNotAvailable) throw;
    return {};
}

Points pointsOf(Emu length) {
    return {static_cast<double>(length.value) / kEmuPerPoint};
}

/// Reads a picture. Raises kFileCouldNotBeRead, with a sentence that names the file, if it is not a picture.
CalcGraphic readGraphic(OfficeConnection& connection, FileStore& files, const std::string& fileName) {
    const std::string bytes = files.read(fileName);
    const auto picture = opc::PictureFile::read(bytes, fileName);
    const Reference<css::graphic::XGraphic> graphic = decode(connection, bytes);
    if (graphic.is()) return {graphic, pointsOf(picture.naturalWidth()), pointsOf(picture.naturalHeight())};
    throw AutomationError(kFileCouldNotBeRead,
                          "The file '" + fileName + "' could not be read: it is a damaged picture.");
}

constexpr const char* kPictureShape = "com.sun.star.drawing.GraphicObjectShape";
constexpr const char* kObjectShape = "com.sun.star.drawing.OLE2Shape";
/// The class of Calc's charts.
constexpr const char* kChartClass = "12DCAE26-281F-416F-A234-C3086127382E";

Reference<css::beans::XPropertySet> propertiesOf(const CalcShapeEntry& entry) {
    return {entry.shape, UNO_QUERY_THROW};
}

/// Anchors the shape to a cell: it moves with the cell and keeps its size.
void anchor(const CalcShapeEntry& entry, const Reference<css::table::XCell>& cell) {
    const Reference<css::beans::XPropertySet> properties = propertiesOf(entry);
    properties->setPropertyValue("Anchor", css::uno::Any(cell));
    properties->setPropertyValue("ResizeWithCell", css::uno::Any(false));
}

/// Returns the last of a sheet's columns or rows that starts at or before a length. Due to rounding, the
/// length may be a hundredth of a millimetre before the edge that is meant.
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

Reference<css::drawing::XShape> makePictureShape(CalcContent& content) {
    return content.connection().call([&] {
        return Reference<css::drawing::XShape>(
            content.factory()->createInstance(OUString::createFromAscii(kPictureShape)), UNO_QUERY_THROW);
    });
}

/// A picture as it is inserted. UNO cannot show a removed shape again, so redoing makes another one.
class InsertedPicture {
  public:
    InsertedPicture(CalcContent& content, CalcSheet& sheet, const excel::CellPosition& cell,
                    const CalcGraphic& graphic, const css::awt::Point& place)
        : content_(content),
          sheet_(sheet),
          cell_(cell),
          graphic_(graphic.graphic),
          place_(place),
          size_{content.columnUnits().lengthOf(graphic.width), lengthOf(graphic.height)} {}

    CalcShapeEntryPtr insert() {
        entry_ = sheet_.shapes().append(makePictureShape(content_));
        return entry_;
    }
    void setProperties() const {
        content_.connection().call([this] {
            propertiesOf(*entry_)->setPropertyValue("Graphic", css::uno::Any(graphic_));
            anchor(*entry_, sheet_.cell(cell_));
            entry_->shape->setSize(size_);
            entry_->shape->setPosition(place_);
        });
    }
    void exchange() const {
        if (!entry_->isDeleted) return sheet_.shapes().remove(entry_);
        sheet_.shapes().append(entry_, makePictureShape(content_));
        setProperties();
    }

  private:
    CalcContent& content_;
    CalcSheet& sheet_;
    excel::CellPosition cell_;
    Reference<css::graphic::XGraphic> graphic_;
    css::awt::Point place_;
    css::awt::Size size_;
    CalcShapeEntryPtr entry_;
};

}  // namespace

CalcDrawnObject CalcDrawnObject::insertPicture(const CalcContentPtr& content, std::size_t sheet,
                                               const excel::CellPosition& cell, const std::string& fileName) {
    CalcSheet& target = content->sheet(sheet);
    target.checkMayChange("pictures");
    const CalcGraphic graphic = readGraphic(content->connection(), content->files(), fileName);
    InsertedPicture picture(*content, target, cell, graphic, cellPlace(*content, sheet, cell));
    content->touch();
    const CalcShapeEntryPtr entry = picture.insert();
    content->undo().recordExchange([picture] { picture.exchange(); });
    picture.setProperties();
    target.shapes().rename(entry, "Picture " + std::to_string(target.shapes().all().size()));
    return {content, sheet, entry};
}

CalcShapeEntry& CalcDrawnObject::entry() const {
    if (entry_->isDeleted) throw AutomationError(kObjectDeleted, "The object has been deleted.");
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

/// Pending texts are written first, since they may make rows higher.
css::awt::Point CalcDrawnObject::place() const {
    content_->pending().flush();
    return content_->connection().call([&] { return entry().shape->getPosition(); });
}

css::awt::Size CalcDrawnObject::size() const {
    return content_->connection().call([&] { return entry().shape->getSize(); });
}

void CalcDrawnObject::setName(const std::string& name) const {
    std::string former = changedEntry().name;
    table().rename(entry_, name);
    content_->undo().recordExchange([table = &table(), entry = entry_, former]() mutable {
        const std::string replaced = entry->name;
        table->rename(entry, former);
        former = replaced;
    });
}

void CalcDrawnObject::setPlace(const css::awt::Point& wanted) const {
    static_cast<void>(changedEntry());
    css::awt::Point former = place();
    moveTo(wanted);
    // The content owns the step, so the step must not own the content.
    const auto exchange = [content = std::weak_ptr(content_), sheet = sheet_, entry = entry_,
                           former]() mutable {
        const CalcContentPtr owner = content.lock();
        if (!owner) return;
        const CalcDrawnObject object(owner, sheet, entry);
        const css::awt::Point replaced = object.place();
        object.moveTo(former);
        former = replaced;
    };
    content_->undo().recordExchange(exchange);
}

/// Anchors the shape to the cell at its new place, since a shape moves with the cell of its anchor.
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
    // UNO has no sizes below a hundredth of a millimetre.
    wanted = {std::max<sal_Int32>(1, wanted.Width), std::max<sal_Int32>(1, wanted.Height)};
    const CalcShapeEntry& changed = changedEntry();
    css::awt::Size former = size();
    content_->connection().call([&] { changed.shape->setSize(wanted); });
    content_->undo().recordExchange([&connection = content_->connection(), entry = entry_, former]() mutable {
        connection.call([&] {
            const css::awt::Size replaced = entry->shape->getSize();
            entry->shape->setSize(former);
            former = replaced;
        });
    });
}

void CalcDrawnObject::remove() const {
    static_cast<void>(changedEntry());
    CalcShapeTable& shapes = table();
    if (!content_->undo().isRecording()) return shapes.remove(entry_);
    const std::size_t position = shapes.positionOf(entry_);
    shapes.hide(entry_);
    content_->undo().recordExchange([&shapes, entry = entry_, position] {
        if (entry->isDeleted) {
            shapes.restore(entry, position);
        } else {
            shapes.hide(entry);
        }
    });
    content_->undo().onDiscard([&shapes, entry = entry_] { shapes.remove(entry); });
}

}  // namespace mergeloom::libreoffice
