#include "office/libreoffice/word/TextArea.h"

#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
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

}  // namespace

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

}  // namespace mergeloom::libreoffice
