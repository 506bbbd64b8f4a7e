#include "describe/NestedViews.h"

#include <algorithm>

namespace mergeloom::describe {

namespace {

constexpr int kMaxDepth = 50;

}  // namespace

bool NestedViews::canSelect(const Table& table) {
    return table.kind == TableKind::Table || selectionOf(table).has_value();
}

const std::optional<ViewSelection>& NestedViews::selectionOf(const Table& view) {
    return translationOf(view).selection;
}

/// A view that is found again while it is being translated has no selection yet, which ends a circle.
const NestedViews::Translation& NestedViews::translationOf(const Table& view) {
    const auto [found, isNew] = translations_.try_emplace(view.name);
    Translation& translation = found->second;
    if (!isNew || !view.definition || open_ == kMaxDepth) return translation;
    ++open_;
    std::optional<ViewSelection> selection =
        ViewSelection::translate(*view.definition, tables_, [&](const Table& source) {
            if (source.kind == TableKind::Table) return true;
            const Translation& inner = translationOf(source);
            translation.depth = std::max(translation.depth, inner.depth + 1);
            return inner.selection.has_value();
        });
    --open_;
    if (translation.depth <= kMaxDepth) translation.selection = std::move(selection);
    return translation;
}

}  // namespace mergeloom::describe
