#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

/// The floating shapes with anchors in a selection.
class ShapeRange : public Counted {};

/// What is selected in the active window; a caret when nothing is.
class Selection : public Object {
  public:
    /// A range of its own over what is selected now.
    virtual RangePtr Range() = 0;

    /// Replaces what is selected; the new text is selected then.
    virtual void SetText(const std::string& text) = 0;
    /// Types at the selection, in the formatting that stands there; typing replaces what is selected. The
    /// caret stands behind the text then.
    virtual void TypeText(const std::string& text) = 0;
    virtual void TypeParagraph() = 0;
    virtual void Collapse(WdCollapseDirection direction) = 0;
    /// Selection.EndKey with the unit wdStory: the caret moves before the last paragraph mark of its story. A
    /// story that ends with a table or a content control gets an empty paragraph after it for that.
    virtual void EndKey(WdUnits unit) = 0;

    virtual FontPtr Font() = 0;

    virtual BookmarksPtr Bookmarks() = 0;
    virtual FieldsPtr Fields() = 0;
    virtual InlineShapesPtr InlineShapes() = 0;
    virtual ShapeRangePtr ShapeRange() = 0;
    virtual TablesPtr Tables() = 0;
};

}  // namespace mergeloom::word
