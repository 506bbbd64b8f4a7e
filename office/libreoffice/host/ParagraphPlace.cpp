#include "office/libreoffice/host/ParagraphPlace.h"

#include <algorithm>
#include <ranges>

namespace mergeloom::libreoffice {

namespace {

using css::awt::Point;
using css::awt::Rectangle;

bool isInLine(const Rectangle& character, Point point) {
    return character.Y <= point.Y && point.Y < character.Y + character.Height;
}

/// Returns true if a caret before the character is before the point in reading order.
bool isBefore(const Rectangle& character, Point point) {
    if (isInLine(character, point)) return character.X + character.Width / 2 < point.X;
    return character.Y < point.Y;
}

}  // namespace

Rectangle caretBefore(const ParagraphReference& paragraph, sal_Int32 character) {
    const Rectangle bounds = paragraph->getCharacterBounds(character);
    return {bounds.X, bounds.Y, 0, bounds.Height};
}

sal_Int32 characterNear(const ParagraphReference& paragraph, Point point) {
    const auto characters = std::views::iota(sal_Int32{0}, paragraph->getCharacterCount());
    const auto next = std::ranges::partition_point(
        characters, [&](sal_Int32 index) { return isBefore(paragraph->getCharacterBounds(index), point); });
    return static_cast<sal_Int32>(next - characters.begin());
}

/// The end of a line and the start of the next one are the same place; the line of the point counts.
Rectangle caretNear(const ParagraphReference& paragraph, Point point) {
    const sal_Int32 index = characterNear(paragraph, point);
    const Rectangle following = caretBefore(paragraph, index);
    if (index == 0 || isInLine(following, point)) return following;
    const Rectangle last = paragraph->getCharacterBounds(index - 1);
    return {last.X + last.Width, last.Y, 0, last.Height};
}

bool isSelected(const ParagraphReference& paragraph, sal_Int32 character) {
    return paragraph->getSelectionStart() <= character && character < paragraph->getSelectionEnd();
}

}  // namespace mergeloom::libreoffice
