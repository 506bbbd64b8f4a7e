#include "office/opc/DocumentProtection.h"

#include "base/AutomationError.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

namespace mergeloom::opc {

namespace {

DocumentProtection protectionOf(std::string_view edit) {
    if (edit == "readOnly") return DocumentProtection::ReadOnly;
    if (edit == "comments") return DocumentProtection::Comments;
    if (edit == "trackedChanges") return DocumentProtection::TrackedChanges;
    if (edit == "forms") return DocumentProtection::Forms;
    return DocumentProtection::None;
}

const char* allowedBy(DocumentProtection protection) {
    switch (protection) {
        case DocumentProtection::Comments:
            return "only comments may be added to it";
        case DocumentProtection::TrackedChanges:
            return "only changes that are tracked may be made, which this change would not be";
        case DocumentProtection::Forms:
            return "only its form fields may be filled in";
        default:
            return "it may only be read";
    }
}

}  // namespace

bool isOff(std::string_view value) {
    return value == "0" || value == "false" || value == "off";
}

DocumentProtection readDocumentProtection(Package& package) {
    const std::string partName = package.relatedPart(package.mainPart(), "settings");
    if (partName.empty()) return DocumentProtection::None;
    const auto part = XmlPart::parse(package.readPart(partName), partName, package.fileName());
    const WordNames names(part->root());
    const pugi::xml_node protection = part->root().child(names.element("documentProtection").c_str());
    const std::string_view enforcement = names.value(protection, "enforcement");
    // Unlike other switches, this one is off by default.
    if (enforcement.empty() || isOff(enforcement)) return DocumentProtection::None;
    return protectionOf(names.value(protection, "edit"));
}

void refuseProtected(const std::string& fileName, DocumentProtection protection) {
    throw AutomationError(kNotAvailable, "The document '" + fileName +
                                             "' is protected: " + allowedBy(protection) +
                                             ". Take the document's protection off first.");
}

}  // namespace mergeloom::opc
