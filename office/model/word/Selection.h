#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

class Font : public Object {
  public:
    /// Sets Font.Size in points, in steps of a half.
    virtual void SetSize(double points) = 0;
};

/// The floating shapes with anchors in a selection.
class ShapeRange : public Counted {};

/// The selection of the active window; a caret when nothing is selected.
class Selection : public Object {
  public:
    /// Returns a new range over the current selection.
    virtual RangePtr Range() = 0;

    /// Replaces the selection; then the new text is selected.
    virtual void SetText(const std::string& text) = 0;
    /// Types at the selection in the formatting there, replacing the selection, and leaves the caret after
    /// the text.
    virtual void TypeText(const std::string& text) = 0;
    virtual void TypeParagraph() = 0;
    virtual void Collapse(WdCollapseDirection direction) = 0;
    /// Selection.EndKey with the unit wdStory: moves the caret before the last paragraph mark of its story. A
    /// story that ends with a table or a content control first gets an empty paragraph after it.
    virtual void EndKey(WdUnits unit) = 0;

    virtual FontPtr Font() = 0;

    virtual BookmarksPtr Bookmarks() = 0;
    virtual FieldsPtr Fields() = 0;
    virtual InlineShapesPtr InlineShapes() = 0;
    virtual ShapeRangePtr ShapeRange() = 0;
    virtual TablesPtr Tables() = 0;
};

/// The window of a document; without a window, its equivalent.
class Window : public Object {
  public:
    virtual SelectionPtr Selection() = 0;
};

}  // namespace mergeloom::word
