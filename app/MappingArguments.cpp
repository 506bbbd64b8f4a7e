#include "app/MappingArguments.h"

#include "app/MergeloomErrorCodes.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/Paths.h"
#include "base/Text.h"

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
    if (value.empty() || value == kEmptyValue || value.ends_with('/') || folderExists(value)) {
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

}  // namespace mergeloom
