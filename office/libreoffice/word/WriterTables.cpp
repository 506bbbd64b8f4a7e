#include "office/libreoffice/word/WriterTables.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/TableInserter.h"
#include "office/libreoffice/word/WriterTable.h"
#include "office/model/word/Range.h"

namespace mergeloom::libreoffice {

namespace {

constexpr int kMostColumns = 63;

/// The table around the stretch, or the outermost ones that it touches.
std::vector<TablePtr> touchedBy(const StoryMap& map, Stretch stretch) {
    if (TablePtr around = map.tableAround(stretch)) return {around};
    std::vector<TablePtr> found;
    for (const TablePtr& table : map.tables()) {
        const bool touches = table->start < stretch.end && stretch.start < table->end();
        if (touches && (found.empty() || table->start >= found.back()->end())) found.push_back(table);
    }
    return found;
}

}  // namespace

WriterTables::WriterTables(std::shared_ptr<WriterContent> content, const LiveStretch& stretch)
    : content_(std::move(content)),
      story_(stretch.story),
      tables_(touchedBy(stretch.story->map(), {stretch.start, stretch.end})) {}

word::TablePtr WriterTables::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such table.");
    return std::make_shared<WriterTable>(
        TablePlace{content_, story_, tables_[static_cast<std::size_t>(number) - 1]});
}

word::TablePtr WriterTables::Add(word::Range& range, int rows, int columns) {
    if (columns > kMostColumns) {
        throw AutomationError(kCommandFailed, "A Word table has at most 63 columns; " +
                                                  std::to_string(columns) + " were asked for.");
    }
    if (rows < 1 || columns < 1) throw AutomationError(kCommandFailed, "A table needs rows and columns.");
    return content_->call([&] {
        WriterStory& story = content_->storyNamed(range.storyName());
        TablePtr table = TableInserter(*content_).insert(story, range.Start(), rows, columns);
        return std::make_shared<WriterTable>(TablePlace{content_, &story, std::move(table)});
    });
}

}  // namespace mergeloom::libreoffice
