#include "droppers/SampleRecord.h"

#include "droppers/StructureNodes.h"
#include "xml/modMSXMLHelper.h"
#include "xml/modNamedItems.h"

#include <string>
#include <utility>

namespace mergeloom {

namespace {

constexpr int kSampleRows = 2;

/// Returns the sample of a record; its values end in the suffix.
Record sampleOf(const XmlNodeCollection& xmlNodes, const TreeNode& parent, const std::string& suffix) {
    Record record;
    for (const TreeNode* const node : allControls(parent)) {
        const XmlNode element = elementOf(xmlNodes, node);
        if (!element) continue;
        RecordControl control;
        control.name = GetAttributeValue(element, Attribute::Name);
        control.isSubform = isSubform(element);
        if (!control.isSubform) {
            control.displayValue = node->Text() + suffix;
            control.boundValue = control.displayValue;
        } else if (isBoundSubform(element)) {
            for (int row = 1; row <= kSampleRows; ++row)
                control.records.push_back(sampleOf(xmlNodes, *node, " " + std::to_string(row)));
        } else {
            control.records.push_back(sampleOf(xmlNodes, *node, suffix));
        }
        record.controls.push_back(std::move(control));
    }
    return record;
}

}  // namespace

Record sampleRecord(const XmlNodeCollection& xmlNodes, const TreeNode& object) {
    return sampleOf(xmlNodes, object, "");
}

}  // namespace mergeloom
