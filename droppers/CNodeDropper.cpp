#include "droppers/CNodeDropper.h"

#include "droppers/DropContext.h"
#include "droppers/DropRecord.h"
#include "droppers/DropRoutes.h"
#include "droppers/ObjectLayout.h"
#include "droppers/SpecialPlaces.h"
#include "droppers/StructureNodes.h"
#include "droppers/modBookmarkAdd.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/excel/Application.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"
#include "xml/modMSXMLHelper.h"
#include "xml/modNamedItems.h"

#include <functional>

namespace mergeloom {

namespace {

bool isSpecialPlace(DropKind kind) {
    return kind == DropKind::OptionalSpace || kind == DropKind::OptionalCarriageReturn;
}

/// Returns the first free name of the kind, or an empty text when all are taken.
std::string freeSpecialName(word::Bookmarks& bookmarks, DropKind kind) {
    for (int number = 0; number < kMaxPlacesOfAKind; ++number) {
        std::string name = specialPlaceName(kind, number);
        if (!bookmarks.Exists(name)) return name;
    }
    return {};
}

/// Makes the selection a place for an optional blank or line break.
bool addSpecialPlace(DropReports& reports, DropKind kind, word::Document& document) {
    const word::ApplicationPtr application = document.Application();
    if (application->Name() != "Microsoft Word") return false;
    std::string name = freeSpecialName(*document.Bookmarks(), kind);
    if (name.empty()) return reports.refuse("The max number of the special bookmarks is exceeded!");

    const PlaceContent content{.vstrText = kind == DropKind::OptionalSpace ? " " : "\r\n"};
    const word::RangePtr selected = application->Selection()->Range();
    return rWordBookmarkAdd(reports, document, *selected, name, content) != nullptr;
}

constexpr const char* kDropperModule = "CNodeDropper";

std::string nameOf(const XmlNode& element) {
    return GetAttributeValue(element, Attribute::Name);
}

bool keepOrTakeBack(DropReports& reports, const Procedure& procedure, DropRecord& record,
                    const std::function<bool()>& drop) {
    const bool dropped = reports.trap(procedure, drop) && !reports.failed();
    if (dropped) {
        record.keep();
    } else {
        record.takeBack();
    }
    return dropped;
}

void noteWhatIsMissing(DropContext& context, const TreeNode& node, ObjectLayout layout) {
    // The refusal of a view does not say that the view was not found.
    if (layout == ObjectLayout::None || !context.reports.hasTold())
        context.nothingDropped = nothingToDrop(context, node, layout);
}

/// A template, since documents and workbooks have no common way to their applications.
template <class DocumentPtr>
bool dropAsOneStep(DropReports& reports, const Procedure& procedure, const DocumentPtr& document,
                   const std::string& name, const std::function<bool()>& drop) {
    if (!document) return false;
    return reports.trap(procedure, [&] {
        const model::UndoRecordPtr undoRecord = document->Application()->UndoRecord();
        DropRecord record{*document, *undoRecord, "Drop " + name};
        return keepOrTakeBack(reports, procedure, record, drop);
    });
}

}  // namespace

bool CNodeDropper::NodeDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                            const XmlNodeCollection& rcolXMLNodes, bool vfShowDialog,
                            DocumentType vDocumentType, const FieldKeys* rcolFields) {
    return dropInto<WordDropRoutes>(robjDocument, robjTVNode, rcolXMLNodes,
                                    {vfShowDialog, vDocumentType, rcolFields});
}

bool CNodeDropper::NodeDrop(const TreeNode& robjTVNode, const excel::WorkbookPtr& robjWorkbook,
                            const XmlNodeCollection& rcolXMLNodes, bool vfShowDialog,
                            DocumentType vDocumentType, const FieldKeys* rcolFields) {
    return dropInto<ExcelDropRoutes>(robjWorkbook, robjTVNode, rcolXMLNodes,
                                     {vfShowDialog, vDocumentType, rcolFields});
}

template <class Routes, class DocumentPtr>
bool CNodeDropper::dropInto(const DocumentPtr& document, const TreeNode& node,
                            const XmlNodeCollection& xmlNodes, const DropSettings& settings) {
    const DropKind kind = dropKindOf(node.Tag());
    if (isSpecialPlace(kind)) return SpecialDrop(kind, document);

    DropReports reports{errors_, messages_};
    DropContext context{reports,  xmlNodes,     findPicture_,     progress_,
                        settings, fieldDialog_, Routes::kNameRule};
    Routes routes{context, document};
    const bool dropped = dropAsOneStep(reports, {kDropperModule, "NodeDrop"}, document, node.Text(), [&] {
        return dropNode({context, node, routes});
    });
    nothingDropped_ = context.nothingDropped;
    return dropped;
}

bool CNodeDropper::SpecialDrop(DropKind item, const word::DocumentPtr& robjDocument) {
    DropReports reports{errors_, messages_};
    return dropAsOneStep(reports, {kDropperModule, "SpecialDrop"}, robjDocument, DropKindName(item),
                         [&] { return addSpecialPlace(reports, item, *robjDocument); });
}

bool CNodeDropper::SpecialDrop(DropKind /*item*/, const excel::WorkbookPtr& /*robjWorkbook*/) {
    return false;
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
    if (kind == DropKind::Label) return drop.routes.labelDrop(elementOf(drop.context.xmlNodes, control));
    const bool labelRequired = kind == DropKind::LabelAndValue || kind == DropKind::LabelAndImage;
    return dropField(drop, *control, {labelRequired, kind == DropKind::BoundValue});
}

bool CNodeDropper::dropObject(const Drop& drop, const XmlNode& element) {
    const ObjectLayout layout = layoutOf(drop.context, element);
    const bool becomesLabels = drop.context.settings.documentType == DocumentType::LabelDocument;
    const bool dropped = becomesLabels ? drop.routes.labelDocumentDrop(drop.node, nameOf(element))
                                       : dropLaidOut(drop, element, layout);
    if (!dropped) noteWhatIsMissing(drop.context, drop.node, layout);
    return dropped;
}

bool CNodeDropper::dropLaidOut(const Drop& drop, const XmlNode& element, ObjectLayout layout) {
    if (layout == ObjectLayout::None) return false;
    return layout == ObjectLayout::Table ? drop.routes.tableDrop(drop.node, nameOf(element))
                                         : drop.routes.formDrop(drop.node, nameOf(element));
}

bool CNodeDropper::dropControl(const Drop& drop, const XmlNode& element) {
    const ObjectLayout layout = layoutOfSubform(element);
    if (layout == ObjectLayout::None) return dropField(drop, drop.node, {});
    const bool dropped = element.firstChild() && dropLaidOut(drop, element, layout);
    if (!dropped) noteWhatIsMissing(drop.context, drop.node, layout);
    return dropped;
}

bool CNodeDropper::dropField(const Drop& drop, const TreeNode& control, const FieldOptions& options) {
    return drop.routes.fieldDrop({.node = elementOf(drop.context.xmlNodes, &control),
                                  .labelRequired = options.labelRequired,
                                  .parentName = enclosingSubformName(drop.context.xmlNodes, control),
                                  .treeNode = &control,
                                  .boundValueUse = options.boundValueUse,
                                  .isTableField = isTableField(control)});
}

}  // namespace mergeloom
