#include "droppers/ControlNames.h"

#include "droppers/BookmarkNames.h"
#include "droppers/ControlNodes.h"
#include "droppers/StructureNodes.h"
#include "droppers/modExcelNormalizeName.h"
#include "droppers/modWordNormalizeName.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::string nameOf(const FieldDropArguments& control) {
    return GetAttributeValue(control.node, Attribute::Name);
}

std::string subjectOf(DropReports& reports, const FieldDropArguments& control) {
    const std::string name = nameOf(control);
    if (!name.empty()) return "The control " + quoted(name);
    return "The control with the caption " + quoted(GetControlCaption(reports, control.node));
}

/// Why no place can be named after a control; empty when one can.
std::string reasonWithoutName(const DropContext& context, const FieldDropArguments& control) {
    const std::string name = nameOf(control);
    const std::string place = SimplifyName(name);
    if (name.empty()) return "it has no name";
    if (ExcelNormalizeName(place, false).empty())
        return "its name holds no letter, no digit and no underscore";
    const std::string suffix(control.boundValueUse ? kBoundValueSuffix : "");
    const bool isUsable = !context.normalizeName(control.parentName + place + suffix, false).empty();
    return isUsable ? "" : "its name is too long";
}

bool isNameable(const DropContext& context, const FieldDropArguments& control) {
    return reasonWithoutName(context, control).empty();
}

/// Returns the controls of a subform that are dropped: those of a table, or those of a form.
std::vector<FieldDropArguments> controlsOf(const DropContext& context, const FieldDropArguments& subform) {
    const TreeNode& node = *subform.treeNode;
    const std::string prefix = nameOf(subform);
    std::vector<FieldDropArguments> controls;
    for (const TreeNode* control :
         isBoundSubform(subform.node) ? fieldsOf(context.xmlNodes, node) : allControls(node)) {
        const XmlNode element = elementOf(context.xmlNodes, control);
        // A control without a form below it has the kinds of a drop there.
        if (element) controls.push_back({.node = element, .parentName = prefix, .treeNode = control});
    }
    return controls;
}

bool leavesAnything(const DropContext& context, const FieldDropArguments& subform) {
    const std::vector<FieldDropArguments> controls = controlsOf(context, subform);
    return controls.empty() || std::ranges::any_of(controls, [&](const FieldDropArguments& control) {
               return isSubform(control.node) ? leavesAnything(context, control)
                                              : isNameable(context, control);
           });
}

}  // namespace

bool takesName(DropContext& context, const FieldDropArguments& control) {
    const std::string reason = reasonWithoutName(context, control);
    if (reason.empty()) return true;
    return context.reports.refuse(subjectOf(context.reports, control) + " is left out: " + reason + ".");
}

bool takesSubform(DropContext& context, const FieldDropArguments& subform) {
    if (leavesAnything(context, subform)) return true;
    for (const FieldDropArguments& control : controlsOf(context, subform))
        isSubform(control.node) ? takesSubform(context, control) : takesName(context, control);
    return context.reports.refuse("The subform " + quoted(nameOf(subform)) +
                                  " is left out: none of its controls can be dropped.");
}

}  // namespace mergeloom
