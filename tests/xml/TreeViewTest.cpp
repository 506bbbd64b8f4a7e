#include "base/AutomationError.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(TreeView, LinksNodesInTheOrderInWhichTheyAreAdded) {
    TreeView tree;
    EXPECT_EQ(tree.First(), nullptr);
    TreeNode& first = tree.Add(0, 1, "first");
    TreeNode& second = tree.Add(0, 2, "second");
    TreeNode& child = tree.Add(1, 3, "child");
    TreeNode& other = tree.Add(1, 0, "other");
    // Nodes stay where they are, however many follow.
    for (int i = 0; i < 1000; ++i)
        tree.Add(4, 0, "many");

    EXPECT_EQ(tree.Count(), 1004);
    EXPECT_EQ(tree.First(), &first);
    EXPECT_EQ(first.Next(), &second);
    EXPECT_EQ(second.Next(), nullptr);
    EXPECT_EQ(first.LastSibling(), &second);
    EXPECT_EQ(second.LastSibling(), &second);
    EXPECT_EQ(first.Child(), &child);
    EXPECT_EQ(child.Next(), &other);
    EXPECT_EQ(child.LastSibling(), &other);
    EXPECT_EQ(child.Parent(), &first);
    EXPECT_EQ(first.Parent(), nullptr);
    EXPECT_EQ(first.Children(), 2);
    EXPECT_EQ(other.Children(), 1000);
    EXPECT_EQ(child.Child(), nullptr);
    EXPECT_EQ(tree.Item(3), &child);
    EXPECT_EQ(child.Index(), 3);
    EXPECT_EQ(child.Text(), "child");
    EXPECT_EQ(child.Key(), "3k");
    EXPECT_EQ(other.Key(), "");
    for (const int none : {-1, 0, 1005})
        EXPECT_EQ(tree.Item(none), nullptr);
    EXPECT_THROW(tree.Add(1005, 0, ""), AutomationError);
}

TEST(TreeView, KeepsTagsAndImagesApart) {
    TreeView tree;
    TreeNode& one = tree.Add(0, 0, "0");
    TreeNode& two = tree.Add(0, 0, "0");
    EXPECT_EQ(one.Tag(), "");
    EXPECT_EQ(one.Image(), "");
    one.SetTag("0");
    two.SetImage("Form");
    EXPECT_EQ(one.Tag(), "0");
    EXPECT_EQ(one.Image(), "");
    EXPECT_EQ(two.Tag(), "");
    EXPECT_EQ(two.Image(), "Form");
    two.SetTag("");
    EXPECT_EQ(two.Tag(), "");
}

TEST(TreeView, StartsAnewAfterClear) {
    TreeView tree;
    tree.Add(0, 0, "old").SetTag("tag");
    tree.Clear();
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_EQ(tree.First(), nullptr);
    TreeNode& node = tree.Add(0, 0, "old");
    node.SetTag("tag");
    EXPECT_EQ(node.Index(), 1);
    EXPECT_EQ(node.Text() + node.Tag(), "oldtag");
}

TEST(XmlNodeCollection, FindsElementsByTheirKeysAlone) {
    pugi::xml_node_struct* const one = reinterpret_cast<pugi::xml_node_struct*>(0x10);
    XmlNodeCollection nodes;
    EXPECT_EQ(nodes.Add(XmlNode(one)), 1);
    EXPECT_EQ(nodes.Add(XmlNode()), 2);
    EXPECT_EQ(nodes.Item("1k"), XmlNode(one));
    EXPECT_EQ(nodes.Item("1K"), XmlNode(one));
    for (const char* key : {"", "k", "1", "01k", "0k", "3k", "-1k", "+1k", "1k ", "99999999999999999999k"}) {
        EXPECT_FALSE(nodes.Item(key)) << key;
    }
}

}  // namespace
}  // namespace mergeloom
