#include "office/libreoffice/word/LiveBookmarks.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Over the whole of a table Writer has a bookmark from its first cell to the end of its last.
bool isOverTable(const RangeReference& anchor) {
    const RangeReference start = anchor->getStart();
    const TableReference table = tableAt(start);
    if (!table.is() || table->getCellNames().getLength() < 2) return false;
    const CursorReference whole = cursorOverTable(table);
    const TextReference last = textAt(whole->getEnd());
    const TextReference first = textAt(whole->getStart());
    return order::holds(first, start) && order::compareStarts(first, start, rangeOf(whole)) == 0 &&
           order::holds(last, anchor->getEnd()) &&
           order::compareStarts(last, anchor->getEnd(), whole->getEnd()) == 0;
}

/// The text of the last cell takes a bookmark over cells, from a cursor that was led there.
void insert(const TextReference& text, const CursorReference& cursor,
            const Reference<css::text::XTextContent>& bookmark) try {
    text->insertTextContent(rangeOf(cursor), bookmark, true);
} catch (const css::uno::RuntimeException&) {
    text->insertTextContent(rangeOf(cursorOver(cursor->getStart(), cursor->getEnd())), bookmark, true);
}

}  // namespace

void BookmarkNames::take(const std::vector<std::string>& names) {
    byFoldedName_.clear();
    takenBelow_.clear();
    for (const std::string& name : names)
        add(name);
}

void BookmarkNames::add(const std::string& name) {
    byFoldedName_[foldCase(name)] = name;
}

void BookmarkNames::remove(const std::string& name) {
    byFoldedName_.erase(foldCase(name));
    // Any counter may be free again; what is asked for next finds out anew.
    takenBelow_.clear();
}

std::string BookmarkNames::find(const std::string& name) const {
    const auto found = byFoldedName_.find(foldCase(name));
    return found == byFoldedName_.end() ? "" : found->second;
}

std::vector<std::string> BookmarkNames::all() const {
    std::vector<std::string> names;
    names.reserve(byFoldedName_.size());
    for (const auto& [folded, name] : byFoldedName_)
        names.push_back(name);
    return names;
}

std::vector<std::string> BookmarkNames::inNameOrder() const {
    std::vector<std::pair<std::string, std::string>> keyed;
    for (const auto& [folded, name] : byFoldedName_) {
        if (!word::isHiddenBookmark(name)) keyed.emplace_back(folded, name);
    }
    std::ranges::sort(keyed);
    std::vector<std::string> ordered;
    ordered.reserve(keyed.size());
    for (auto& [folded, name] : keyed)
        ordered.push_back(std::move(name));
    return ordered;
}

std::int64_t BookmarkNames::firstFreeCounter(const std::string& stem) {
    std::int64_t& counter = takenBelow_.try_emplace(foldCase(stem), 1).first->second;
    while (!find(stem + std::to_string(counter)).empty())
        ++counter;
    return counter;
}

BookmarkNames& LiveBookmarks::names() {
    if (areNamesKnown_) return names_;
    std::vector<std::string> names;
    for (const OUString& name : model_.bookmarks->getElementNames())
        names.push_back(fromUno(name));
    names_.take(names);
    areNamesKnown_ = true;
    return names_;
}

LiveBookmark LiveBookmarks::get(const std::string& name) try {
    const std::string found = names().find(name);
    if (found.empty()) throw AutomationError(kObjectDeleted, "The bookmark has been deleted.");
    const RangeReference anchor = anchorOf(model_.bookmarks->getByName(toUno(found)));
    return {found, anchor, beyondOf(found, anchor)};
} catch (const css::container::NoSuchElementException&) {
    throw AutomationError(kObjectDeleted, "The bookmark has been deleted.");
}

LiveBookmark LiveBookmarks::of(const css::uno::Any& bookmark) {
    const RangeReference anchor = anchorOf(bookmark);
    return {fromUno(Reference<css::container::XNamed>(bookmark, UNO_QUERY_THROW)->getName()), anchor};
}

Beyond LiveBookmarks::beyondOf(const std::string& name, const RangeReference& anchor) const {
    if (const auto known = beyond_.find(name); known != beyond_.end()) return known->second;
    return isOverTable(anchor) ? Beyond::Table : Beyond::Nothing;
}

RangeReference LiveBookmarks::put(const std::string& name, const TrackedRange& range) {
    ++version_;
    const TextReference text = textAt(range.cursor->getEnd());
    if (const std::string former = names().find(name); !former.empty()) remove(former);
    const Reference<css::uno::XInterface> made = model_.factory->createInstance("com.sun.star.text.Bookmark");
    const Reference<css::text::XTextContent> bookmark(made, UNO_QUERY_THROW);
    Reference<css::container::XNamed>(made, UNO_QUERY_THROW)->setName(toUno(name));
    insert(text, range.cursor, bookmark);
    names_.add(name);
    beyond_[name] = range.endBeyond;
    return bookmark->getAnchor();
}

void LiveBookmarks::remove(const std::string& name) try {
    ++version_;
    names().remove(name);
    beyond_.erase(name);
    Reference<css::lang::XComponent>(model_.bookmarks->getByName(toUno(name)), UNO_QUERY_THROW)->dispose();
} catch (const css::container::NoSuchElementException&) {
    // It went with its text.
}

}  // namespace mergeloom::libreoffice
