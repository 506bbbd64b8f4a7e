#include "office/embedded/word/EmbeddedTables.h"

#include "base/AutomationError.h"
#include "office/embedded/word/RangeContents.h"
#include "office/embedded/word/TextArea.h"
#include "office/model/word/Range.h"

namespace mergeloom::embedded {

namespace {

constexpr int kMostColumns = 63;

}  // namespace

const std::vector<std::shared_ptr<EmbeddedTable>>& EmbeddedTables::tables() {
    if (tables_) return *tables_;
    tables_.emplace();
    for (const FoundTable& found : RangeContents(*place_.story, start_, end_).tables()) {
        tables_->push_back(makeTable(place_, found.element, found.inside));
    }
    return *tables_;
}

word::TablePtr EmbeddedTables::Item(int number) {
    return tables()[indexOf(number)];
}

word::TablePtr EmbeddedTables::Add(word::Range& range, int rows, int columns) {
    if (columns > kMostColumns) {
        throw AutomationError(kCommandFailed, "A Word table has at most 63 columns; " +
                                                  std::to_string(columns) + " were asked for.");
    }
    if (rows < 1 || columns < 1) throw AutomationError(kCommandFailed, "A table needs rows and columns.");
    Story& story = place_.content->storyNamed(range.storyName());
    place_.content->beginEdit(story, range.Start(), range.Start());
    const TableShape shape{rows, columns, textAreaWidth(story, range.Start()).value / kEmuPerTwip,
                           place_.content->hasStyle("TableGrid")};
    const StoryPlace place{place_.content, &story};
    embedded::Item* rowMark = place.editable().tables().insertTable(range.Start(), shape);
    return makeTable(place, story.tableOf(rowMark), rowMark);
}

}  // namespace mergeloom::embedded
