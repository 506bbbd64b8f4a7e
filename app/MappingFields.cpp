#include "app/MappingFields.h"

#include "app/CommandLineSwitches.h"
#include "base/Text.h"
#include "xml/modMSXMLHelper.h"

#include <initializer_list>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace mergeloom {

namespace {

using KeysByName = std::unordered_map<std::string, std::string>;

constexpr std::string_view kBlanks = " \t\r\n";

KeysByName keysOfChildren(const TreeNode& object, const XmlNodeCollection& xmlNodes) {
    KeysByName keys;
    for (const TreeNode* child = object.Child(); child; child = child->Next()) {
        const std::string name = GetAttributeValue(xmlNodes.Item(child->Key()), Attribute::Name);
        keys.emplace(foldCase(name), child->Key());
    }
    return keys;
}

std::string_view trimmedName(std::string_view name) {
    const std::size_t first = name.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return name.substr(first, name.find_last_not_of(kBlanks) - first + 1);
}

/// Returns the key of the first of the spellings that a field has.
std::optional<std::string> keyOf(const KeysByName& keys, std::initializer_list<std::string_view> spellings) {
    for (const std::string_view spelling : spellings) {
        const auto found = keys.find(foldCase(spelling));
        if (found != keys.end()) return found->second;
    }
    return std::nullopt;
}

}  // namespace

bool listsFields(const std::string& fieldList) {
    return !fieldList.empty() && fieldList != kEmptyValue;
}

bool namesFields(const std::string& fieldList) {
    return fieldList.find_first_not_of(",; \t\r\n") != std::string::npos;
}

std::string unmatchedSentence(const NamedFields& fields, const std::string& object) {
    std::string names;
    for (const std::string& name : fields.unmatched) {
        names += (names.empty() ? "\"" : ", \"") + name + "\"";
    }
    if (names.empty()) return {};
    return "The list of fields names " + names + ": " + object + " has no such field.";
}

NamedFields fieldsNamed(const TreeNode& object, const XmlNodeCollection& xmlNodes,
                        const std::string& fieldList) {
    const KeysByName keysByName = keysOfChildren(object, xmlNodes);
    NamedFields fields;
    const char separator = fieldList.find(',') != std::string::npos ? ',' : ';';
    for (const std::string_view name : split(fieldList, separator)) {
        const std::string_view trimmed = trimmedName(name);
        if (const auto key = keyOf(keysByName, {name, trimmed})) {
            fields.keys.push_back(*key);
        } else if (!trimmed.empty()) {
            fields.unmatched.emplace_back(trimmed);
        }
    }
    return fields;
}

}  // namespace mergeloom
