#pragma once

#include "StructureTest.h"
#include "doubles/WordFiles.h"
#include "droppers/CNodeDropper.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <memory>
#include <string>

namespace mergeloom {

/// Tests with an open document, and a structure document with its tree.
class DropTest : public StructureTest {
  protected:
    /// Opens an empty document, or one with this body.
    void open(const std::string& bodyXml = "") {
        application = makeWordApplication(OfficeKind::Embedded, files);
        if (bodyXml.empty()) {
            document = application->Documents()->Add("");
        } else {
            files.files["/given.docx"] = wordFile(bodyXml);
            document = application->Documents()->Open("/given.docx");
        }
    }

    bool drop(const TreeNode& dropped, DocumentType type = DocumentType::ByView,
              const FieldKeys* fields = nullptr) {
        CNodeDropper dropper{errors, messages, [&](const std::string& image) { return pictures[image]; },
                             progress, dialog};
        return dropper.NodeDrop(dropped, document, xmlNodes, dialog != nullptr, type, fields);
    }

    word::SelectionPtr selection() { return application->Selection(); }
    word::BookmarkPtr bookmark(const std::string& name) { return document->Bookmarks()->Item(name); }
    std::string body() { return shown(*document, files); }

    /// Places the caret at the start or the end of a bookmark.
    void goTo(const std::string& name, word::WdCollapseDirection side) {
        bookmark(name)->Select();
        selection()->Collapse(side);
    }

    /// Places the caret in a cell of a table of the body.
    void goToCell(int table, int row, int column) {
        document->Tables()->Item(table)->Rows()->Item(row)->Cells()->Item(column)->Select();
        selection()->Collapse(word::WdCollapseDirection::wdCollapseStart);
    }

    /// Makes a place at the caret in the way of other programs.
    void placeAtCaret(const std::string& name, const std::string& text) {
        selection()->SetText(text);
        document->Bookmarks()->Add(name, *selection()->Range());
        selection()->Collapse(word::WdCollapseDirection::wdCollapseEnd);
    }

    word::ApplicationPtr application;
    word::DocumentPtr document;
};

}  // namespace mergeloom
