#pragma once

#include "xml/TreeView.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace mergeloom {

/// A tree of random shape, depth and texts, for comparisons with its own links. About every third node has no
/// key.
inline std::shared_ptr<TreeView> randomTree(std::mt19937& chance) {
    const std::vector<std::string> texts = {"Order", "order date", "Ort",          "Label",
                                            "Größe", "Tür",        "Date of order"};
    const auto pick = [&](int most) { return std::uniform_int_distribution<int>(0, most)(chance); };
    auto tree = std::make_shared<TreeView>();
    for (int count = pick(80); count > 0; --count) {
        const int parent = pick(tree->Count());
        const int key = pick(2) == 0 ? 0 : tree->Count() + 1;
        tree->Add(parent, key, texts[static_cast<std::size_t>(pick(static_cast<int>(texts.size()) - 1))]);
    }
    return tree;
}

}  // namespace mergeloom
