#include "office/libreoffice/session/RecordPages.h"

#include <gtest/gtest.h>

#include <vector>

namespace mergeloom::libreoffice {
namespace {

TEST(RecordPagesTest, RecordsFollowOneAnotherOnPagesOfTheirOwn) {
    struct Case {
        std::vector<RecordStart> starts;
        int pages;
        int exported;
        std::vector<PageRange> ranges;
    };
    const std::vector<Case> cases{
        {{{0, 1}}, 3, 3, {{1, 3}}},
        {{{0, 1}, {2, 3}, {3, 4}}, 6, 6, {{1, 2}, {3, 3}, {4, 6}}},
        // Blank pages are counted, but not exported.
        {{{0, 1}, {1, 3}, {3, 5}}, 5, 3, {{1, 1}, {2, 2}, {3, 3}}},
        // A blank page inside a record could be in any of the records.
        {{{0, 1}, {4, 5}}, 6, 5, {}},
        {{{0, 1}, {1, 3}}, 4, 4, {}},
        // Two records share a page, or something unknown is between them or before the first.
        {{{0, 1}, {2, 2}}, 2, 2, {}},
        {{{0, 1}, {1, 4}}, 4, 4, {}},
        {{{0, 2}}, 2, 2, {}},
        {{{0, 1}, {3, 4}, {2, 3}}, 5, 5, {}},
        {{{0, 1}, {1, 2}}, 1, 1, {}},
        {{}, 1, 1, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(pagesBetween(c.starts, c.pages, c.exported), c.ranges)
            << c.starts.size() << " records on " << c.pages << " pages";
}

}  // namespace
}  // namespace mergeloom::libreoffice
