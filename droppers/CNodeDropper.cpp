#include "droppers/CNodeDropper.h"

#include "droppers/CNodeDropperField.h"
#include "droppers/CNodeDropperForm.h"
#include "droppers/CNodeDropperLabel.h"
#include "droppers/CNodeDropperLabelDoc.h"
#include "droppers/CNodeDropperTable.h"
#include "droppers/DropRecord.h"
#include "droppers/ObjectLayout.h"
#include "droppers/SpecialPlace.h"
#include "droppers/StructureNodes.h"
#include "droppers/TableBookmark.h"
#include "xml/modMSXMLHelper.h"

namespace mergeloom {

namespace {

constexpr const char* kModule = "CNodeDropper";

std::string nameOf(const XmlNode& element) {
    return GetAttributeValue(element, Attribute::Name);
}

/// The bookmark of the table of the object or subform that a control stands in.
std::string tableNameOf(const XmlNodeCollection& xmlNodes, const TreeNode& control) {
    const TreeNode* parent = control.Parent();
    return parent ? tableBookmarkName(*parent, nameOf(elementOf(xmlNodes, parent))) : "";
}

}  // namespace

bool CNodeDropper::NodeDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                            const XmlNodeCollection& rcolXMLNodes, bool vfShowDialog,
                            DocumentType vDocumentType, const FieldKeys* rcolFields) {
    const DropKind kind = dropKindOf(robjTVNode.Tag());
    if (isSpecialPlace(kind)) return SpecialDrop(kind, robjDocument);

    DropReports reports{errors_, messages_};
    DropContext context{
        reports,     rcolXMLNodes, findPicture_, progress_, {vfShowDialog, vDocumentType, rcolFields},
        fieldDialog_};
    return dropAsOneStep(reports, {kModule, "NodeDrop"}, robjDocument, robjTVNode.Text(), [&] {
        return dropNode({context, robjTVNode, robjDocument});
    });
}

bool CNodeDropper::SpecialDrop(DropKind item, const word::DocumentPtr& robjDocument) {
    DropReports reports{errors_, messages_};
    return dropAsOneStep(reports, {kModule, "SpecialDrop"}, robjDocument, DropKindName(item),
                         [&] { return addSpecialPlace(reports, item, *robjDocument); });
}

bool CNodeDropper::dropAsOneStep(DropReports& reports, const Procedure& procedure,
                                 const word::DocumentPtr& document, const std::string& name,
                                 const std::function<bool()>& drop) {
    if (!document) return false;
    return reports.trap(procedure, [&] {
        DropRecord record{*document, "Drop " + name};
        const bool dropped = reports.trap(procedure, drop) && !reports.failed();
        if (dropped) {
            record.keep();
        } else {
            record.takeBack();
        }
        return dropped;
    });
}

bool CNodeDropper::dropNode(const Drop& drop) {
    const DropKind kind = dropKindOf(drop.node.Tag());
    if (kind >= DropKind::Label) return dropKind(drop, kind);

    const XmlNode element = elementOf(drop.context.xmlNodes, &drop.node);
    if (!element) return false;
    switch (structureElementOf(element.nodeName())) {
        case StructureElement::Table:
        case StructureElement::Query:
        case StructureElement::Form:
            return dropObject(drop, element);
        case StructureElement::Control:
            return dropControl(drop, element);
        default:
            return false;
    }
}

bool CNodeDropper::dropKind(const Drop& drop, DropKind kind) {
    const TreeNode* control = drop.node.Parent();
    if (!control) return false;
    if (kind == DropKind::Label) {
        const XmlNode element = elementOf(drop.context.xmlNodes, control);
        return CNodeDropperLabel(drop.context.reports).LabelDrop(element, drop.document, false);
    }
    const bool labelRequired = kind == DropKind::LabelAndValue || kind == DropKind::LabelAndImage;
    return fieldDrop(drop, *control, {labelRequired, kind == DropKind::BoundValue});
}

bool CNodeDropper::dropObject(const Drop& drop, const XmlNode& element) {
    const ObjectLayout layout = layoutOf(drop.context, element);
    if (drop.context.settings.documentType == DocumentType::LabelDocument) {
        return labelDocumentDrop(drop, element);
    }
    if (layout == ObjectLayout::None) return false;
    return layout == ObjectLayout::Table ? tableDrop(drop, element) : formDrop(drop, element);
}

bool CNodeDropper::dropControl(const Drop& drop, const XmlNode& element) {
    if (!isSubform(element)) return fieldDrop(drop, drop.node, {});
    if (!element.firstChild()) return false;
    return isBoundSubform(element) ? tableDrop(drop, element) : formDrop(drop, element);
}

bool CNodeDropper::fieldDrop(const Drop& drop, const TreeNode& control, const FieldOptions& options) {
    const XmlNodeCollection& xmlNodes = drop.context.xmlNodes;
    const FieldDropArguments arguments{.node = elementOf(xmlNodes, &control),
                                       .document = drop.document,
                                       .labelRequired = options.labelRequired,
                                       .parentName = enclosingSubformName(xmlNodes, control),
                                       .treeNode = &control,
                                       .boundValueUse = options.boundValueUse,
                                       .isTableField = isTableField(control),
                                       .tableName = tableNameOf(xmlNodes, control)};
    CNodeDropperField dropper{drop.context};
    return arguments.isTableField ? dropper.TableFieldDrop(arguments) : dropper.FieldDrop(arguments);
}

bool CNodeDropper::formDrop(const Drop& drop, const XmlNode& element) {
    return CNodeDropperForm(drop.context)
        .FormDrop(drop.node, drop.document, nameOf(element), drop.context.settings.fields);
}

bool CNodeDropper::tableDrop(const Drop& drop, const XmlNode& element) {
    return CNodeDropperTable(drop.context)
        .TableDrop(drop.node, drop.document, nameOf(element), drop.context.settings.fields);
}

bool CNodeDropper::labelDocumentDrop(const Drop& drop, const XmlNode& element) {
    return CNodeDropperLabelDoc(drop.context)
        .LabelDocumentDrop(drop.node, drop.document, nameOf(element), drop.context.settings.fields);
}

}  // namespace mergeloom
