#include "office/libreoffice/word/Needle.h"

#include "base/AutomationError.h"

#include <algorithm>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <cstdlib>

namespace mergeloom::libreoffice {

namespace {

/// A cursor takes its steps as a number of 16 bits.
constexpr std::int64_t kMostSteps = 32767;

/// The first paragraph that stands in the text itself and in no table.
RangeReference firstParagraph(const TextReference& text) {
    const Reference<css::container::XEnumerationAccess> blocks(text, UNO_QUERY_THROW);
    const auto enumeration = blocks->createEnumeration();
    while (enumeration->hasMoreElements()) {
        const css::uno::Any block = enumeration->nextElement();
        if (Reference<css::text::XTextTable>(block, UNO_QUERY).is()) continue;
        return RangeReference(block, UNO_QUERY_THROW);
    }
    throw AutomationError(kCommandFailed, "LibreOffice does not find the place in the document.");
}

}  // namespace

void Needle::enter(const NeedleText& text) {
    if (cursor_.is() && text_ == text.text) return;
    cursor_.clear();
    text_ = text.text;
    goToStart(text);
}

void Needle::goToStart(const NeedleText& text) {
    if (text.beginsWithTable) {
        cursor_ = text_->createTextCursorByRange(firstParagraph(text_)->getStart());
    } else {
        if (!cursor_.is()) cursor_ = text_->createTextCursor();
        cursor_->gotoStart(false);
    }
    point_ = mark_ = 0;
}

/// A cursor that moves without selecting lets its selection go by itself.
void Needle::collapse() {
    if (point_ == mark_) return;
    if (point_ > mark_) {
        cursor_->collapseToEnd();
    } else {
        cursor_->collapseToStart();
    }
    mark_ = point_;
}

void Needle::move(std::int64_t by, bool expand) {
    if (by == 0) return;
    for (std::int64_t left = std::abs(by); left > 0;) {
        const auto steps = static_cast<sal_Int16>(std::min(left, kMostSteps));
        const bool moved = by < 0 ? cursor_->goLeft(steps, expand) : cursor_->goRight(steps, expand);
        if (!moved) {
            forget();
            throw AutomationError(kCommandFailed, "LibreOffice does not find the place in the document.");
        }
        left -= steps;
    }
    point_ += by;
    if (!expand) mark_ = point_;
}

/// Over a table it goes by a step of its own.
void Needle::go(const NeedleText& text, std::int64_t steps, bool expand) {
    const std::int64_t from = point_;
    for (const std::int64_t behind : text.behindTables) {
        if (from >= behind || steps < behind) continue;
        move(behind - 1 - point_, expand);
        move(1, expand);
    }
    for (auto behind = text.behindTables.rbegin(); behind != text.behindTables.rend(); ++behind) {
        if (from < *behind || steps >= *behind) continue;
        move(*behind - point_, expand);
        move(-1, expand);
    }
    move(steps - point_, expand);
}

const CursorReference& Needle::at(const NeedleText& text, std::int64_t steps) {
    enter(text);
    if (steps < std::abs(steps - point_)) goToStart(text);
    go(text, steps, false);
    collapse();
    return cursor_;
}

const CursorReference& Needle::over(const NeedleText& text, std::int64_t from, std::int64_t to) {
    enter(text);
    // From the end that is nearer: what was just typed lies before the cursor.
    const bool backwards = std::abs(to - point_) < std::abs(from - point_);
    at(text, backwards ? to : from);
    go(text, backwards ? from : to, true);
    return cursor_;
}

}  // namespace mergeloom::libreoffice
