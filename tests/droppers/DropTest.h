#pragma once

#include "doubles/MemoryFileStore.h"
#include "doubles/RecordingMessages.h"
#include "doubles/WordFiles.h"
#include "droppers/CNodeDropper.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/word/Bookmark.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Cell.h"
#include "office/model/word/Cells.h"
#include "office/model/word/Documents.h"
#include "office/model/word/Range.h"
#include "office/model/word/Rows.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"
#include "office/model/word/Tables.h"
#include "xml/CXML2TreeView.h"
#include "xml/RecordingErrorHandler.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace mergeloom {

class SilentProgress final : public Progress {
  public:
    void advance(std::int64_t done, std::int64_t total) override { last = {done, total}; }
    std::pair<std::int64_t, std::int64_t> last;
};

/// An open document, and a structure document with its tree.
class DropTest : public testing::Test {
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

    void load(const std::string& xml) {
        ASSERT_TRUE(structure.loadXML(xml)) << structure.parseError().reason;
        tree.Clear();
        CXML2TreeView view{tree, structure, errors};
        view.DisplayXMLNode(0, structure.documentElement(), false);
        xmlNodes = std::move(view.XMLNodes());
    }

    /// The tree node of a key, or the drop kind of that name below it.
    TreeNode& node(const std::string& key, const std::string& kind = "") {
        for (int index = 1; index <= tree.Count(); ++index) {
            TreeNode& found = *tree.Item(index);
            if (kind.empty() ? found.Key() == key : found.Text() == kind && found.Parent()->Key() == key) {
                return found;
            }
        }
        ADD_FAILURE() << "no node " << key << " " << kind;
        return *tree.First();
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

    /// Puts the caret where a bookmark starts or ends.
    void goTo(const std::string& name, word::WdCollapseDirection side) {
        bookmark(name)->Select();
        selection()->Collapse(side);
    }

    /// Puts the caret into a cell of a table of the body.
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

    MemoryFileStore files;
    RecordingErrorHandler errors;
    RecordingMessages messages;
    SilentProgress progress;
    FieldDialog* dialog = nullptr;
    word::ApplicationPtr application;
    word::DocumentPtr document;
    StructureDocument structure;
    TreeView tree;
    XmlNodeCollection xmlNodes;
    std::map<std::string, std::string> pictures;
};

}  // namespace mergeloom
