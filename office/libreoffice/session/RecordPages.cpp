#include "office/libreoffice/session/RecordPages.h"

#include "office/libreoffice/session/UnoProperty.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/letters/RecordMark.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
#include <com/sun/star/text/XPageCursor.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextViewCursor.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <com/sun/star/view/XRenderable.hpp>

namespace mergeloom::libreoffice {

namespace {

/// Looks up the pages of places in a document that is laid out.
class PageFinder {
  public:
    explicit PageFinder(const DocumentReference& document)
        : document_(document),
          controller_(Reference<css::frame::XModel>(document, UNO_QUERY_THROW)->getCurrentController()),
          bookmarks_(Reference<css::text::XBookmarksSupplier>(document, UNO_QUERY_THROW)->getBookmarks()),
          cursor_(
              Reference<css::text::XTextViewCursorSupplier>(controller_, UNO_QUERY_THROW)->getViewCursor()),
          page_(cursor_, UNO_QUERY_THROW) {}

    /// Returns the number of exported pages. Lays out the whole document.
    [[nodiscard]] int exportedPages() const {
        const Reference<css::view::XRenderable> renderable(document_, UNO_QUERY_THROW);
        const css::beans::PropertyValue skipsBlanks = property("IsSkipEmptyPages", true);
        return renderable->getRendererCount(css::uno::Any(document_), {&skipsBlanks, 1});
    }
    [[nodiscard]] int pages() const {
        sal_Int32 count = 0;
        const Reference<css::beans::XPropertySet> properties(controller_, UNO_QUERY_THROW);
        properties->getPropertyValue("PageCount") >>= count;
        return count;
    }
    [[nodiscard]] bool has(const std::string& bookmark) const {
        return bookmarks_->hasByName(toUno(bookmark));
    }
    [[nodiscard]] RecordStart startAt(const std::string& bookmark) const {
        Reference<css::text::XTextContent> mark;
        bookmarks_->getByName(toUno(bookmark)) >>= mark;
        cursor_->gotoRange(mark->getAnchor()->getStart(), false);
        RecordStart start{0, page_->getPage()};
        if (cursor_->goLeft(1, false)) start.before = page_->getPage();
        return start;
    }

  private:
    DocumentReference document_;
    Reference<css::frame::XController> controller_;
    Reference<css::container::XNameAccess> bookmarks_;
    Reference<css::text::XTextViewCursor> cursor_;
    Reference<css::text::XPageCursor> page_;
};

}  // namespace

std::vector<PageRange> pagesBetween(const std::vector<RecordStart>& starts, int pages, int exportedPages) {
    if (starts.empty() || starts.front().page != 1) return {};
    std::vector<PageRange> ranges{{1, 0}};
    int blanks = 0;
    for (std::size_t record = 1; record < starts.size(); ++record) {
        const RecordStart& start = starts[record];
        const int gap = start.page - start.before - 1;
        if (gap < 0 || gap > 1 || start.before < starts[record - 1].page) return {};
        ranges.back().last = start.before - blanks;
        blanks += gap;
        ranges.push_back({start.page - blanks, 0});
    }
    ranges.back().last = exportedPages;
    // All blank pages have to be between records, and the last one needs a page.
    const bool fits = pages - exportedPages == blanks && ranges.back().first <= exportedPages;
    return fits ? ranges : std::vector<PageRange>();
}

std::vector<PageRange> pagesOfRecords(const DocumentReference& document, std::size_t records) {
    const PageFinder finder(document);
    const int exportedPages = finder.exportedPages();
    std::vector<RecordStart> starts;
    for (std::size_t record = 0; record < records; ++record) {
        const std::string mark = letters::recordMarkName(record);
        if (!finder.has(mark)) return {};
        starts.push_back(finder.startAt(mark));
    }
    return pagesBetween(starts, finder.pages(), exportedPages);
}

}  // namespace mergeloom::libreoffice
