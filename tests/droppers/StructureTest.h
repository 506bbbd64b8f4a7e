#pragma once

#include "doubles/MemoryFileStore.h"
#include "doubles/RecordingMessages.h"
#include "droppers/CNodeDropper.h"
#include "xml/CXML2TreeView.h"
#include "xml/RecordingErrorHandler.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

namespace mergeloom {

class SilentProgress final : public Progress {
  public:
    void advance(std::int64_t done, std::int64_t total) override { last = {done, total}; }
    std::pair<std::int64_t, std::int64_t> last;
};

/// Tests with a structure document and its tree, and with the other arguments of a drop except the document.
class StructureTest : public testing::Test {
  protected:
    void load(const std::string& xml) {
        ASSERT_TRUE(structure.loadXML(xml)) << structure.parseError().reason;
        tree.Clear();
        CXML2TreeView view{tree, structure, errors};
        view.DisplayXMLNode(0, structure.documentElement(), false);
        xmlNodes = std::move(view.XMLNodes());
    }

    /// Returns the tree node of a key, or its drop kind of a name.
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

    MemoryFileStore files;
    RecordingErrorHandler errors;
    RecordingMessages messages;
    SilentProgress progress;
    FieldDialog* dialog = nullptr;
    StructureDocument structure;
    TreeView tree;
    XmlNodeCollection xmlNodes;
    std::map<std::string, std::string> pictures;
};

}  // namespace mergeloom
