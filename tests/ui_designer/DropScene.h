#pragma once

#include "doubles/RecordingErrors.h"
#include "ui/designer/DropFlow.h"
#include "xml/CXML2TreeView.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom {

/// A structure document with its tree, without the names of places.
inline std::shared_ptr<LoadedStructure> structureOf(const std::string& xml) {
    auto structure = std::make_shared<LoadedStructure>();
    structure->document.loadXML(xml);
    RecordingErrors errors;
    CXML2TreeView display(structure->tree, structure->document, errors);
    display.DisplayXMLNode(0, structure->document.documentElement(), true);
    structure->xmlNodes = std::move(display.XMLNodes());
    for (const TreeNode* object = structure->tree.First(); object != nullptr; object = object->Next())
        structure->objects.push_back(object);
    return structure;
}

/// The structure of one form with two fields.
inline std::shared_ptr<LoadedStructure> letterStructure() {
    return structureOf(
        "<Form Name=\"Letter\" CurrentView=\"1\" DefaultView=\"0\">"
        "<Control Name=\"Customer\" Caption=\"&amp;Customer\" ControlType=\"Textbox\"/>"
        "<Control Name=\"Order Date\" Caption=\"Order date:\" ControlType=\"Textbox\"/>"
        "</Form>");
}

/// A tree with its first field selected.
class FakeDropTree final : public DropTree {
  public:
    bool hasLostFocus() override { return lostFocus; }
    const TreeNode* selectedNode() override { return node; }
    std::shared_ptr<LoadedStructure> structure() override { return shown; }
    void unhook() override { ++unhooked; }

    std::shared_ptr<LoadedStructure> shown = letterStructure();
    const TreeNode* node = shown->tree.First()->Child();
    bool lostFocus = true;
    int unhooked = 0;
};

}  // namespace mergeloom
