#include "office/libreoffice/word/InlinePicture.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>
#include <com/sun/star/text/XTextColumns.hpp>
#include <com/sun/star/text/XTextTable.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr std::int64_t kEmuPerHundredthOfMillimetre = 360;

using Properties = Reference<css::beans::XPropertySet>;

std::int64_t measure(const Properties& properties, const char* name) {
    sal_Int32 value = 0;
    properties->getPropertyValue(OUString::createFromAscii(name)) >>= value;
    return value;
}

Properties pageStyle(const WriterModel& model, const Properties& place) {
    OUString name;
    place->getPropertyValue("PageStyleName") >>= name;
    const Reference<css::style::XStyleFamiliesSupplier> families(model.document, UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> styles(families->getStyleFamilies()->getByName("PageStyles"),
                                                        UNO_QUERY_THROW);
    return {styles->getByName(styles->hasByName(name) ? name : OUString("Standard")), UNO_QUERY_THROW};
}

std::int64_t columnsOf(const Properties& page) {
    Reference<css::text::XTextColumns> columns;
    page->getPropertyValue("TextColumns") >>= columns;
    return columns.is() ? std::max<std::int64_t>(1, columns->getColumnCount()) : 1;
}

/// Returns how wide text can be at the cursor: the page less its margins, or the width of the cell around it.
Emu textAreaWidth(const WriterModel& model, const CursorReference& cursor) {
    const Properties place(cursor, UNO_QUERY_THROW);
    Properties table;
    place->getPropertyValue("TextTable") >>= table;
    if (table.is()) {
        // New tables share their width evenly; where a table does not, its mean serves as well.
        const Reference<css::text::XTextTable> cells(table, UNO_QUERY_THROW);
        const std::int64_t columns = std::max<std::int64_t>(1, cells->getColumns()->getCount());
        return {measure(table, "Width") / columns * kEmuPerHundredthOfMillimetre};
    }
    const Properties page = pageStyle(model, place);
    const std::int64_t width =
        measure(page, "Width") - measure(page, "LeftMargin") - measure(page, "RightMargin");
    return {width / columnsOf(page) * kEmuPerHundredthOfMillimetre};
}

std::int32_t hundredths(Emu length) {
    const std::int64_t rounded =
        (length.value + kEmuPerHundredthOfMillimetre / 2) / kEmuPerHundredthOfMillimetre;
    return static_cast<std::int32_t>(std::max<std::int64_t>(1, rounded));
}

Reference<css::graphic::XGraphic> readGraphic(const Reference<css::uno::XComponentContext>& office,
                                              const std::string& bytes) {
    const css::uno::Sequence<sal_Int8> sequence(reinterpret_cast<const sal_Int8*>(bytes.data()),
                                                static_cast<sal_Int32>(bytes.size()));
    css::beans::PropertyValue stream;
    stream.Name = "InputStream";
    stream.Value <<= css::io::SequenceInputStream::createStreamFromSequence(office, sequence);
    const css::uno::Sequence<css::beans::PropertyValue> properties(&stream, 1);
    return css::graphic::GraphicProvider::create(office)->queryGraphic(properties);
}

}  // namespace

InlinePicture::InlinePicture(WriterContent& content, const std::string& fileName)
    : content_(content),
      bytes_(content.takenFile(fileName)),
      file_(opc::PictureFile::read(bytes_, fileName)),
      name_(fileName) {}

CursorReference InlinePicture::insert(const CursorReference& place) const {
    const Reference<css::graphic::XGraphic> graphic = readGraphic(content_.office(), bytes_);
    if (!graphic.is()) {
        throw AutomationError(
            kFileCouldNotBeRead,
            "The file '" + name_ + "' could not be read: LibreOffice cannot show the picture.");
    }
    Emu width = file_.naturalWidth();
    Emu height = file_.naturalHeight();
    const Emu area = textAreaWidth(content_.model(), place);
    if (width > area) {
        const double scale = static_cast<double>(area.value) / static_cast<double>(width.value);
        height = {
            std::max<std::int64_t>(1, static_cast<std::int64_t>(static_cast<double>(height.value) * scale))};
        width = area;
    }
    const Reference<css::uno::XInterface> made =
        content_.model().factory->createInstance("com.sun.star.text.TextGraphicObject");
    const Reference<css::beans::XPropertySet> properties(made, UNO_QUERY_THROW);
    properties->setPropertyValue("AnchorType", css::uno::Any(css::text::TextContentAnchorType_AS_CHARACTER));
    properties->setPropertyValue("Graphic", css::uno::Any(graphic));
    properties->setPropertyValue("Width", css::uno::Any(hundredths(width)));
    properties->setPropertyValue("Height", css::uno::Any(hundredths(height)));
    const Reference<css::text::XTextContent> picture(made, UNO_QUERY_THROW);
    place->getText()->insertTextContent(rangeOf(place), picture, false);
    // The cursor may be before or after the picture now.
    CursorReference over = cursorOver(picture->getAnchor()->getStart());
    over->goRight(1, true);
    return over;
}

}  // namespace mergeloom::libreoffice
