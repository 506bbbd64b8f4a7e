#include "office/libreoffice/word/WriterTables.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/TextPortions.h"
#include "office/libreoffice/word/WriterCells.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/model/word/TableSize.h"

#include <algorithm>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <optional>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// Returns the table around the range, or the outermost ones that it touches.
std::vector<TableReference> touchedBy(const TrackedRange& range) {
    std::vector<TableReference> found;
    if (const TableReference around = tableAround(range); around.is()) return {around};
    if (range.cursor->getString().indexOf('\n') < 0) return found;
    for (const auto elements = enumerationOf(range.cursor); elements->hasMoreElements();) {
        if (const TableReference table{elements->nextElement(), UNO_QUERY}; table.is())
            found.push_back(table);
    }
    return found;
}

/// Inserts a table before the paragraph in which the range begins. The paragraph is split when it has text
/// before the range.
TableReference insertTable(WriterContent& content, const TrackedRange& range, int rows, int columns) {
    content.checkMayEdit();
    const RangePtr place = content.copyOf(range);
    place->cursor->collapseToStart();
    place->startBeyond = place->endBeyond = Beyond::Nothing;
    if (!Reference<css::text::XParagraphCursor>(place->cursor, UNO_QUERY_THROW)->isStartOfParagraph()) {
        TextEditor(content).replace(*place, "\r");
        place->cursor->collapseToEnd();
    }
    TableReference made(content.model().factory->createInstance("com.sun.star.text.TextTable"),
                        UNO_QUERY_THROW);
    made->initialize(rows, columns);
    place->cursor->getText()->insertTextContent(rangeOf(place->cursor),
                                                Reference<css::text::XTextContent>(made.get()), false);
    Reference<css::beans::XPropertySet>(made, UNO_QUERY_THROW)
        ->setPropertyValue("RepeatHeadline", css::uno::Any(false));
    content.finder().forgetGap();
    content.notePlaceAfter(made, *place);
    return made;
}

/// Returns the outermost tables of the body in place order.
std::vector<TableReference> tablesOfBody(const WriterModel& model) {
    std::vector<std::pair<RangeReference, TableReference>> placed;
    for (const OUString& name : model.tables->getElementNames()) {
        const TableReference table(model.tables->getByName(name), UNO_QUERY_THROW);
        const RangeReference start = cursorOverTable(table)->getStart();
        if (!tableAround(table).is() && order::holds(model.body, start)) placed.emplace_back(start, table);
    }
    std::ranges::sort(placed, [&](const auto& one, const auto& other) {
        return order::compareStarts(model.body, one.first, other.first) < 0;
    });
    std::vector<TableReference> tables;
    tables.reserve(placed.size());
    for (const auto& [start, table] : placed)
        tables.push_back(table);
    return tables;
}

class WriterTable final : public word::Table {
  public:
    explicit WriterTable(StoryTable table) : table_(std::move(table)) {}

    word::RangePtr Range() override {
        return content().call([&] { return makeRange(table_.content, whole()); });
    }
    word::RowsPtr Rows() override {
        content().call([&] { (void)table_.get(); });
        return makeRows(table_);
    }
    word::ColumnsPtr Columns() override {
        return content().call([&] {
            std::size_t most = 0;
            for (const RowOfCells& row : rowsOf(table_.get()))
                most = std::max(most, row.size());
            return std::make_shared<model::FixedCount<word::Columns>>(static_cast<int>(most));
        });
    }
    bool Uniform() override {
        return content().call([&] { return isUniform(table_.get()); });
    }
    void Select() override {
        content().call([&] { content().select(whole()); });
    }
    void Delete() override {
        content().call([&] { TextEditor(content()).removeTable(table_.story, table_.get()); });
    }

  private:
    [[nodiscard]] WriterContent& content() const { return *table_.content; }
    [[nodiscard]] TrackedRange whole() const { return wholeTable(table_.story, table_.get()); }

    StoryTable table_;
};

class WriterTables final : public word::Tables {
  public:
    WriterTables(std::shared_ptr<WriterContent> content, RangePtr range)
        : content_(std::move(content)), range_(std::move(range)) {}

    int Count() override { return static_cast<int>(tables().size()); }
    word::TablePtr Item(int number) override {
        const std::size_t index = indexOf(number);
        return made(range_ ? range_->story : content_->model().body, tables()[index]);
    }
    word::TablePtr Add(word::Range& range, int rows, int columns) override {
        word::checkTableSize(rows, columns);
        return content_->call([&] {
            const RangePtr place = content_->linkedTo(range);
            return made(place->story, insertTable(*content_, *place, rows, columns));
        });
    }

  private:
    [[nodiscard]] word::TablePtr made(const TextReference& story, const TableReference& table) const {
        return std::make_shared<WriterTable>(StoryTable{content_, story, table});
    }
    const std::vector<TableReference>& tables() {
        const auto find = [&] { return range_ ? touchedBy(*range_) : tablesOfBody(content_->model()); };
        if (!tables_) tables_ = content_->call(find);
        return *tables_;
    }

    std::shared_ptr<WriterContent> content_;
    RangePtr range_;
    std::optional<std::vector<TableReference>> tables_;
};

}  // namespace

word::TablesPtr tablesOf(const std::shared_ptr<WriterContent>& content, const RangePtr& range) {
    return std::make_shared<WriterTables>(content, range);
}

}  // namespace mergeloom::libreoffice
