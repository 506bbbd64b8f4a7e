#include "droppers/CNodeDropperLabel.h"

#include "droppers/modBookmarkAdd.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Range.h"
#include "office/model/word/Application.h"
#include "office/model/word/Selection.h"
#include "xml/modMSXMLHelper.h"

#include <string>

namespace mergeloom {

namespace {

constexpr Procedure kLabelDrop{"CNodeDropperLabel", "LabelDrop"};

std::string asLabel(std::string caption) {
    if (!caption.ends_with(':')) caption += ':';
    caption += ' ';
    return caption;
}

}  // namespace

bool CNodeDropperLabel::LabelDrop(const XmlNode& robjXMLNode, const word::DocumentPtr& robjDocument,
                                  bool vfAddTab) {
    return reports_.trap(kLabelDrop, [&] {
        if (!robjDocument || !robjXMLNode) return false;
        const word::SelectionPtr selection = robjDocument->Application()->Selection();
        TouchingBookmarks unused;
        return ValidateBookmark(reports_, *selection->Range(), unused) &&
               typeCaption(robjXMLNode, *selection, vfAddTab ? CaptionStyle::Label : CaptionStyle::Plain);
    });
}

bool CNodeDropperLabel::typeLabel(const XmlNode& control, word::Selection& selection) {
    return reports_.trap(kLabelDrop, [&] { return typeCaption(control, selection, CaptionStyle::Label); });
}

bool CNodeDropperLabel::typeCaption(const XmlNode& control, word::Selection& selection, CaptionStyle style) {
    const std::string caption = GetControlCaption(reports_, control);
    if (caption.empty()) return false;
    selection.TypeText(style == CaptionStyle::Label ? asLabel(caption) : caption);
    return true;
}

bool CNodeDropperLabel::xlLabelDrop(const XmlNode& robjXMLNode, const excel::WorkbookPtr& robjWorkbook) {
    return reports_.trap({"CNodeDropperLabel", "xlLabelDrop"}, [&] {
        if (!robjWorkbook || !robjXMLNode) return false;
        const std::string caption = GetControlCaption(reports_, robjXMLNode);
        if (caption.empty()) return false;
        robjWorkbook->Application()->Selection()->SetValue2(caption);
        return true;
    });
}

}  // namespace mergeloom
