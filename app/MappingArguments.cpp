#include "app/MappingArguments.h"

#include "app/MergeloomErrorCodes.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "xml/modMSXMLHelper.h"

#include <initializer_list>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace mergeloom {

namespace {

bool isGiven(std::int32_t commandLineSwitch) {
    return !GetCommandLineArgument(commandLineSwitch).empty();
}

/// Returns the full path of an existing file that a switch names; empty without the switch.
std::string existingFile(std::int32_t commandLineSwitch, ErrorNumber missing) {
    const std::string path = GetCommandLineArgument(commandLineSwitch);
    if (!path.empty() && !fileExists(path)) RaiseMappingError(missing);
    return fullPath(path);
}

/// Returns the full path of the template. A document to build on may be changed in place, so only then the
/// template may be left out. A switch without a value is a mistake, and a folder is no template.
std::string readTarget(bool hasDocument, bool allowExistingTemplate) {
    const std::string value = GetCommandLineArgument(kTemplateSwitch);
    if (value.empty() && hasDocument) return {};
    if (value.empty() || value == kEmptyValue || isPathSeparator(value.back()) || folderExists(value)) {
        RaiseMappingError(kTemplateNotDefined);
    }
    std::string target = fullPath(value);
    if (GetParentFolder(target, true).empty()) RaiseMappingError(kTemplateFolderDoesNotExist);
    if (!allowExistingTemplate && fileExists(target)) RaiseMappingError(kTemplateAlreadyExists);
    return target;
}

MappingType typeOf(const MappingArguments& arguments) {
    if (arguments.listing) return MappingType::Listing;
    if (equalsIgnoringCase(GetCommandLineArgument(kHiddenSwitch), "formview")) return MappingType::Form;
    if (!arguments.labelDocument.empty()) return MappingType::LabelDocument;
    return arguments.directory ? MappingType::Form : MappingType::ByView;
}

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

std::string existingXmlFile() {
    if (!isGiven(kXmlFileSwitch)) RaiseMappingError(kXmlFileNotDefined);
    return existingFile(kXmlFileSwitch, kXmlFileDoesNotExist);
}

MappingArguments readMappingArguments(const MappingOptions& options, bool allowExistingTemplate) {
    MappingArguments arguments;
    arguments.xmlFile = existingXmlFile();
    arguments.directory = isGiven(kDirectorySwitch);
    arguments.useDocument = existingFile(kUseDocumentSwitch, kUseDocumentDoesNotExist);
    if (!options.mapsAll()) {
        arguments.targetPath = readTarget(!arguments.useDocument.empty(), allowExistingTemplate);
    }
    arguments.targetExists = fileExists(arguments.targetPath);
    arguments.listing = isGiven(kListingSwitch);
    arguments.labelDocument = existingFile(kLabelSwitch, kLabelDocumentDoesNotExist);
    arguments.fields = GetCommandLineArgument(kFieldsSwitch);
    arguments.type = typeOf(arguments);
    return arguments;
}

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
