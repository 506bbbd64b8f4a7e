#include "droppers/LinkedFields.h"

#include "base/Text.h"
#include "droppers/StructureNodes.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>
#include <set>

namespace mergeloom {

namespace {

std::string withoutTexts(std::string_view source) {
    std::string expression;
    bool isText = false;
    for (const char character : source) {
        if (character == '"') isText = !isText;
        if (!isText) expression += character;
    }
    return expression;
}

bool appliesToField(std::string_view expression) {
    for (std::size_t open = expression.find('('); open != std::string_view::npos;
         open = expression.find('(', open + 1)) {
        const std::string_view inside = trimBlanks(expression.substr(open + 1));
        if (inside.starts_with('[') && inside.find(')') != std::string_view::npos) return true;
    }
    return false;
}

}  // namespace

std::vector<std::string> linkedNames(std::string_view controlSource) {
    const std::string expression = withoutTexts(controlSource);
    if (!appliesToField(expression)) return {};
    std::vector<std::string> names;
    std::size_t open = expression.find('[');
    while (open != std::string::npos) {
        const std::size_t close = expression.find(']', open);
        if (close == std::string::npos) break;
        names.push_back(expression.substr(open + 1, close - open - 1));
        open = expression.find('[', close);
    }
    return names;
}

ControlNodes GetLinkedFields(const XmlNodeCollection& xmlNodes, const TreeNode& field,
                             const ControlNodes& siblings) {
    const std::string source = GetAttributeValue(elementOf(xmlNodes, &field), Attribute::ControlSource);
    ControlNodes linked;
    for (const std::string& name : linkedNames(source)) {
        const auto isNamed = [&](const TreeNode* sibling) {
            return equalsIgnoringCase(GetAttributeValue(elementOf(xmlNodes, sibling), Attribute::Name), name);
        };
        const auto found = std::ranges::find_if(siblings, isNamed);
        if (found == siblings.end() || *found == &field) continue;
        if (std::ranges::find(linked, *found) == linked.end()) linked.push_back(*found);
    }
    return linked;
}

std::vector<ControlNodes> placesOfColumns(const XmlNodeCollection& xmlNodes, const ControlNodes& columns,
                                          const ControlNodes& siblings) {
    std::set<const TreeNode*> placed(columns.begin(), columns.end());
    std::vector<ControlNodes> places;
    for (const TreeNode* column : columns) {
        places.push_back({column});
        for (const TreeNode* linked : GetLinkedFields(xmlNodes, *column, siblings)) {
            if (placed.insert(linked).second) places.back().push_back(linked);
        }
    }
    return places;
}

}  // namespace mergeloom
