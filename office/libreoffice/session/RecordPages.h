#pragma once

#include "office/libreoffice/session/Uno.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Pages of a document, in the order in which they are exported, from 1.
struct PageRange {
    int first = 0;
    int last = 0;

    [[nodiscard]] std::string text() const { return std::to_string(first) + "-" + std::to_string(last); }
    friend bool operator==(const PageRange&, const PageRange&) = default;
};

/// The pages where records start and where the text before them ends, as a layout counts them.
struct RecordStart {
    int before = 0;
    int page = 0;
};

/// Returns the pages of records that follow one another on pages of their own; empty if they do not. The
/// first record starts on the first page. Between two records a layout may insert one blank page, which is
/// counted in all pages, but not exported.
std::vector<PageRange> pagesBetween(const std::vector<RecordStart>& starts, int pages, int exportedPages);

/// Returns the pages of the records of a document, whose starts are marked; empty if they cannot be told
/// apart. Must be called within OfficeConnection::call.
std::vector<PageRange> pagesOfRecords(const DocumentReference& document, std::size_t records);

}  // namespace mergeloom::libreoffice
