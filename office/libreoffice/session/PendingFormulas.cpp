#include "office/libreoffice/session/PendingFormulas.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>

namespace mergeloom::libreoffice {

void computePendingFormulas(const DocumentReference& document) {
    // Each formula is computed to find the kind of its result. A search for any kind would also list the
    // cells, which takes half a minute for 200,000 of them.
    constexpr sal_Int32 kNoResults = 0;
    const Reference<css::sheet::XSpreadsheetDocument> book(document, UNO_QUERY);
    if (!book.is()) return;
    const Reference<css::container::XEnumerationAccess> sheets(book->getSheets(), UNO_QUERY_THROW);
    const Reference<css::container::XEnumeration> each = sheets->createEnumeration();
    while (each->hasMoreElements()) {
        const Reference<css::sheet::XCellRangesQuery> cells(each->nextElement(), UNO_QUERY_THROW);
        cells->queryFormulaCells(kNoResults);
    }
}

}  // namespace mergeloom::libreoffice
