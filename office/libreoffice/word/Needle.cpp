#include "office/libreoffice/word/Needle.h"

#include "base/AutomationError.h"

#include <algorithm>
#include <cstdlib>

namespace mergeloom::libreoffice {

namespace {

/// A cursor takes its steps as a number of 16 bits.
constexpr std::int64_t kMostSteps = 32767;

}  // namespace

void Needle::enter(const TextReference& text) {
    if (cursor_.is() && text_ == text) return;
    text_ = text;
    cursor_ = text->createTextCursor();
    cursor_->gotoStart(false);
    point_ = mark_ = 0;
}

void Needle::collapse() {
    if (point_ == mark_) return;
    cursor_->collapseToEnd();
    point_ = mark_ = std::max(point_, mark_);
}

void Needle::move(std::int64_t by, bool expand) {
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
    enter(text.text);
    collapse();
    if (steps < std::abs(steps - point_)) {
        cursor_->gotoStart(false);
        point_ = mark_ = 0;
    }
    go(text, steps, false);
    return cursor_;
}

const CursorReference& Needle::over(const NeedleText& text, std::int64_t from, std::int64_t to) {
    enter(text.text);
    collapse();
    // From the end that is nearer: what was just typed lies before the cursor.
    const bool backwards = std::abs(to - point_) < std::abs(from - point_);
    at(text, backwards ? to : from);
    go(text, backwards ? from : to, true);
    return cursor_;
}

}  // namespace mergeloom::libreoffice
