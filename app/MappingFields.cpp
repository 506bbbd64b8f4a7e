#include "app/MappingFields.h"

#include "app/CommandLineSwitches.h"
#include "base/Text.h"
#include "xml/modMSXMLHelper.h"

#include <unordered_map>

namespace mergeloom {

bool listsFields(const std::string& fieldList) {
    return !fieldList.empty() && fieldList != kEmptyValue;
}

bool namesFields(const std::string& fieldList) {
    return fieldList.find_first_not_of(",; ") != std::string::npos;
}

FieldKeys fieldKeys(const TreeNode& object, const XmlNodeCollection& xmlNodes, const std::string& fieldList) {
    std::unordered_map<std::string, std::string> keysByName;
    for (const TreeNode* child = object.Child(); child; child = child->Next()) {
        const std::string name = GetAttributeValue(xmlNodes.Item(child->Key()), Attribute::Name);
        keysByName.emplace(foldCase(name), child->Key());
    }

    FieldKeys keys;
    const char separator = fieldList.find(',') != std::string::npos ? ',' : ';';
    for (const std::string_view name : split(fieldList, separator)) {
        const auto found = keysByName.find(foldCase(name));
        if (found != keysByName.end()) keys.push_back(found->second);
    }
    return keys;
}

}  // namespace mergeloom
