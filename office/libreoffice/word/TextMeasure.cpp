#include "office/libreoffice/word/TextMeasure.h"

#include <algorithm>
#include <com/sun/star/uno/RuntimeException.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr sal_Int16 kLongestJump = 16384;

/// Takes the steps in ever shorter jumps. A cursor's text would be quicker to get, but it shows fields by
/// their results and pictures not at all.
std::int64_t countSteps(const CursorReference& cursor) {
    std::int64_t steps = 0;
    for (sal_Int16 jump = kLongestJump; jump > 0;) {
        const Reference<css::text::XTextRange> before = cursor->getStart();
        if (cursor->goLeft(jump, false)) {
            steps += jump;
            if (jump == kLongestJump) continue;
        } else {
            cursor->gotoRange(before, false);
        }
        jump = static_cast<sal_Int16>(jump / 2);
    }
    return steps;
}

/// Whether it is just so many steps from the cursor to the text's start.
bool isSteps(const CursorReference& cursor, std::int64_t steps) {
    for (std::int64_t left = steps; left > 0; left -= kLongestJump) {
        const std::int64_t jump = std::min<std::int64_t>(left, kLongestJump);
        if (!cursor->goLeft(static_cast<sal_Int16>(jump), false)) return false;
    }
    return !cursor->goLeft(1, false);
}

}  // namespace

std::int64_t stepsBefore(const TextReference& text, const Reference<css::text::XTextRange>& range) try {
    const Reference<css::text::XTextRange> start = range->getStart();
    const CursorReference cursor = text->createTextCursorByRange(start);
    if (!cursor.is()) return -1;
    cursor->gotoStart(true);
    const std::int64_t length = cursor->getString().getLength();
    cursor->gotoRange(start, false);
    if (isSteps(cursor, length)) return length;
    cursor->gotoRange(start, false);
    return countSteps(cursor);
} catch (const css::uno::RuntimeException&) {
    return -1;
}

std::int64_t stepsOf(const TextReference& text) {
    return stepsBefore(text, text->getEnd());
}

}  // namespace mergeloom::libreoffice
