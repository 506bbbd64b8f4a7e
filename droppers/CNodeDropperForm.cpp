#include "droppers/CNodeDropperForm.h"

#include "droppers/CNodeDropperField.h"
#include "droppers/CellNavigation.h"
#include "droppers/SelectionCheck.h"
#include "droppers/StructureNodes.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Range.h"
#include "office/model/word/Application.h"

namespace mergeloom {

namespace {

constexpr const char* kFormModule = "CNodeDropperForm";
constexpr const char* kRefused = "It is impossible to insert the form into current selection.";

ControlNodes controlsOf(const TreeNode& form, const FieldKeys* keys) {
    return keys ? chosenControls(form, *keys) : allControls(form);
}

}  // namespace

bool CNodeDropperForm::FormDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                                const std::string& baseName, const FieldKeys* rcolFields) {
    return context_.reports.trap({kFormModule, "FormDrop"}, [&] {
        if (!robjTVNode.Child()) return false;
        if (!takesCompositeDrop(*robjDocument->Application()->Selection())) {
            return context_.reports.refuse(kRefused);
        }
        const std::string prefix = placePrefix(context_.xmlNodes, robjTVNode, baseName);
        return dropControls(robjTVNode, controlsOf(robjTVNode, rcolFields), prefix, robjDocument);
    });
}

int CNodeDropperForm::xlFormDrop(const TreeNode& robjTVNode, const excel::WorkbookPtr& robjWorkbook,
                                 const std::string& baseName, const FieldKeys* rcolFields) {
    int rows = 0;
    context_.reports.trap({kFormModule, "xlFormDrop"}, [&] {
        if (!robjTVNode.Child()) return false;
        if (robjWorkbook->Application()->Selection()->TypeName() != "Range") {
            return context_.reports.refuse(kRefused);
        }
        const std::string prefix = placePrefix(context_.xmlNodes, robjTVNode, baseName);
        rows = xlDropControls(robjTVNode, controlsOf(robjTVNode, rcolFields), prefix, robjWorkbook);
        return true;
    });
    return context_.reports.failed() ? 0 : rows;
}

bool CNodeDropperForm::dropControls(const TreeNode& form, const ControlNodes& controls,
                                    const std::string& prefix, const word::DocumentPtr& document) {
    bool dropped = false;
    std::int64_t handled = 0;
    for (const TreeNode* control : controls) {
        const FieldDropArguments arguments = argumentsFor(*control, prefix);
        dropped |= CNodeDropperField(context_).FieldDrop(arguments, document);
        if (context_.reports.failed()) return false;
        advance(form, ++handled, std::ssize(controls));
    }
    return dropped;
}

int CNodeDropperForm::xlDropControls(const TreeNode& form, const ControlNodes& controls,
                                     const std::string& prefix, const excel::WorkbookPtr& workbook) {
    const excel::ApplicationPtr application = workbook->Application();
    const int firstRow = application->ActiveCell()->Row();
    int rows = 0;
    std::int64_t handled = 0;
    for (const TreeNode* control : controls) {
        const excel::RangePtr cell = application->ActiveCell();
        const FieldDropArguments arguments = argumentsFor(*control, prefix);
        const int used = CNodeDropperField(context_).xlFieldDrop(arguments, workbook);
        if (context_.reports.failed()) return 0;
        // Rows between two controls, which merged cells occupy, count as well.
        if (used > 0) rows = cell->Row() + used - firstRow;
        advance(form, ++handled, std::ssize(controls));
        const auto below = [&] { return cellBelow(*cell, used); };
        // Only a control that follows needs the row below, and the sheet's last row has none.
        const excel::RangePtr next = handled == std::ssize(controls) ? rangeOrNone(below) : below();
        if (next) next->Activate();
    }
    return rows;
}

FieldDropArguments CNodeDropperForm::argumentsFor(const TreeNode& control, const std::string& prefix) const {
    return {.node = elementOf(context_.xmlNodes, &control),
            .labelRequired = true,
            .parentName = prefix,
            .treeNode = &control};
}

void CNodeDropperForm::advance(const TreeNode& form, std::int64_t handled, std::int64_t total) {
    // A subform is one step of the form around it.
    if (!form.Parent()) context_.progress.advance(handled, total);
}

}  // namespace mergeloom
