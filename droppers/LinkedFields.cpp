#include "droppers/LinkedFields.h"

#include "base/Text.h"
#include "droppers/StructureNodes.h"
#include "xml/modMSXMLHelper.h"

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

FieldsByName::FieldsByName(const XmlNodeCollection& xmlNodes, const ControlNodes& fields) {
    for (const TreeNode* field : fields) {
        const std::string name = GetAttributeValue(elementOf(xmlNodes, field), Attribute::Name);
        byFoldedName_.emplace(foldCase(name), field);
    }
}

const TreeNode* FieldsByName::find(std::string_view name) const {
    const auto found = byFoldedName_.find(foldCase(name));
    return found == byFoldedName_.end() ? nullptr : found->second;
}

ControlNodes GetLinkedFields(const XmlNodeCollection& xmlNodes, const TreeNode& field,
                             const FieldsByName& siblings) {
    const std::string source = GetAttributeValue(elementOf(xmlNodes, &field), Attribute::ControlSource);
    ControlNodes linked;
    std::set<const TreeNode*> seen{&field};
    for (const std::string& name : linkedNames(source)) {
        const TreeNode* sibling = siblings.find(name);
        if (sibling && seen.insert(sibling).second) linked.push_back(sibling);
    }
    return linked;
}

std::vector<ControlNodes> placesOfColumns(const XmlNodeCollection& xmlNodes, const ControlNodes& columns,
                                          const ControlNodes& siblings) {
    const FieldsByName byName{xmlNodes, siblings};
    std::set<const TreeNode*> placed(columns.begin(), columns.end());
    std::vector<ControlNodes> places;
    for (const TreeNode* column : columns) {
        places.push_back({column});
        for (const TreeNode* linked : GetLinkedFields(xmlNodes, *column, byName)) {
            if (placed.insert(linked).second) places.back().push_back(linked);
        }
    }
    return places;
}

}  // namespace mergeloom
