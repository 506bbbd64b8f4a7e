#include "xml/COptions.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "xml/modMSXMLHelper.h"

namespace mergeloom {

namespace {

constexpr const char* kOptionsElement = "Options";

}  // namespace

void COptions::init(XmlNode documentElement) {
    const XmlNode options = SearchNodeNotCaseSensitive(errors_, documentElement, kOptionsElement);
    const XmlNode locations = SearchNodeNotCaseSensitive(errors_, options, "FileLocations");
    if (!locations) {
        throw AutomationError(kApplicationError,
                              "The structure document has no Options element with a FileLocations element.");
    }
    const std::size_t count = locations.attributeCount();
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view name = locations.attributeName(i);
        if (equalsIgnoringCase(name, "DocumentsFolder")) {
            documentsFolder_ = locations.attributeValue(i);
        } else if (equalsIgnoringCase(name, "TemplatesFolder")) {
            templatesFolder_ = locations.attributeValue(i);
        }
    }
}

bool COptions::initIfThere(XmlNode documentElement) {
    if (!documentElement.mayHaveBelow(kOptionsElement)) return false;
    try {
        init(documentElement);
        return true;
    } catch (const AutomationError& error) {
        if (error.number() != kApplicationError) throw;
        return false;
    }
}

}  // namespace mergeloom
