#include "RecordingErrorHandler.h"
#include "xml/CXML2TreeView.h"

#include <gtest/gtest.h>

#include <fstream>

namespace mergeloom {
namespace {

/// Returns a tree as text: a line for each node, indented by its level, with key, text, tag and image unless
/// they are empty. Drop kinds, whose tag is their text, have their text only.
std::string dump(const TreeNode* node, int level = 0) {
    std::string text;
    for (; node != nullptr; node = node->Next()) {
        text += std::string(static_cast<std::size_t>(level), ' ');
        if (!node->Key().empty()) text += node->Key() + " ";
        text += node->Text();
        if (!node->Tag().empty() && node->Tag() != node->Text()) text += " #" + node->Tag();
        if (!node->Image().empty()) text += " [" + node->Image() + "]";
        text += "\n" + dump(node->Child(), level + 1);
    }
    return text;
}

struct Shown {
    explicit Shown(const std::string& xml, bool showIcons = false,
                   DropKindNodes dropKinds = DropKindNodes::Shown)
        : view(tree, document, errors, dropKinds) {
        EXPECT_TRUE(document.loadXML(xml)) << document.parseError().reason;
        view.DisplayXMLNode(0, document.documentElement(), showIcons);
    }

    StructureDocument document;
    TreeView tree;
    RecordingErrorHandler errors;
    CXML2TreeView view;
};

std::string dumpOf(const std::string& xml) {
    Shown shown(xml);
    EXPECT_TRUE(shown.errors.reports.empty());
    return dump(shown.tree.First());
}

constexpr const char* kKinds = "Label\n  Value\n  Label and Value\n";

TEST(XmlTree, LeavesOutTheKindsOfDropWhereNobodyChooses) {
    Shown shown(
        "<Form Name='F' CurrentView='1'><Control Name='a' Section='2'/><Control Name='s' "
        "ControlType='Subform'><Form HasRecordset='1'><Control Name='b'/></Form></Control></Form>",
        false, DropKindNodes::LeftOut);
    EXPECT_EQ(dump(shown.tree.First()), "1k Form \"F\" #1\n 2k a #2\n 3k s #2\n  4k b #0\n");
}

TEST(XmlTree, ShowsObjectsAndControlsOnly) {
    Shown shown(
        "<db><!--x--><TABLE Name='T'><Control Name='c'/></TABLE><Unknown>text<Query Name='Q &amp; R'/>"
        "</Unknown><form/><Data><Form Name='hidden'/><Control Name='c'><BoundValue/></Control></Data>"
        "<Control Name='free'/></db>");
    EXPECT_EQ(dump(shown.tree.First()),
              "1k TABLE \"T\"\n"
              " 2k c #0\n  Label\n  Value\n  Label and Value\n  Bound Value\n"
              "3k Query \"Q & R\"\n"
              "4k form\n"
              "5k free #0\n Label\n Value\n Label and Value\n");
    EXPECT_EQ(shown.view.XMLNodes().Count(), 5);
    EXPECT_EQ(shown.view.XMLNodes().Item("3k").namedAttribute("Name"), "Q & R");
    EXPECT_TRUE(shown.errors.reports.empty());
}

TEST(XmlTree, TextsOfControls) {
    struct {
        const char* control;
        const char* text;
    } const cases[] = {
        {"<Control Caption='Customer:'/>", "Customer"},
        {"<Control Caption=' Customer :'/>", "Customer"},
        {"<Control Caption=' Customer '/>", " Customer "},
        {"<Control Caption='&amp;&amp;Co'/>", "&Co"},
        {"<Control Caption='&amp;Name::' Name='n'/>", "Name:"},
        {"<Control Name='n'/>", "n"},
        {"<Control Caption='' Name='n'/>", ""},
        {"<Control Caption=':' Name='n'/>", ""},
        {"<Control/>", ""},
        {"<Control Name='n' ControlType='tabcontrol'/>", ""},
        {"<Control name='n'/>", ""},
        {"<Page Name='n'/>", ""},
    };
    for (const auto& c : cases) {
        Shown shown("<db>" + std::string(c.control) + "</db>");
        std::string typeName;
        int viewState = 0;
        const XmlNode control = shown.document.documentElement().firstChild();
        EXPECT_EQ(shown.view.FormatNodeString(control, typeName, viewState), c.text) << c.control;
        EXPECT_EQ(shown.tree.Count(), *c.text == '\0' ? 0 : 4) << c.control;
        EXPECT_TRUE(shown.errors.reports.empty());
    }
}

TEST(XmlTree, ViewsGiveTagsAndImages) {
    const std::string leaf = "<Control Name='c' ControlType='";
    Shown shown(
        "<db><Table Name='A' CurrentView='2'/><Form Name='B' CurrentView=' 1'/><Form Name='C' "
        "CurrentView='0'/>"
        "<Query Name='D'/>" +
            leaf + "COMBOBOX' Section='4'/>" + leaf + "attachment' Section=''/>" + leaf +
            "Sparkline'/><Control Name='c'/></db>",
        true);
    const std::string kinds = " Label\n Value\n Label and Value\n";
    EXPECT_EQ(dump(shown.tree.First()),
              "1k Table \"A\" #2 [Datasheet]\n2k Form \"B\" #1 [Form]\n"
              "3k Form \"C\" [CustomControl]\n4k Query \"D\" [CustomControl]\n"
              "5k c #4 [Combobox]\n" +
                  kinds + "6k c [BoundObjectFrame]\n" + kinds + "7k c #0 [CustomControl]\n" + kinds +
                  "8k c #0 [Textbox]\n" + kinds);
    EXPECT_TRUE(shown.errors.reports.empty());
}

TEST(XmlTree, SubformsAndTabsHandTheirControlsOn) {
    const auto subform = [](const std::string& inside) {
        return dumpOf("<db><Form Name='F'><Control Name='s' ControlType='Subform'>" + inside +
                      "</Control></Form></db>");
    };
    const std::string form = "1k Form \"F\"\n 2k s";
    const std::string inner = "\n  3k c #0\n   Label\n   Value\n   Label and Value\n";
    const std::string control = "<Control Name='c'/>";
    EXPECT_EQ(subform("<Form Name='x' CurrentView='2' HasRecordset='1'>" + control + "</Form>"),
              form + " #2" + inner);
    EXPECT_EQ(subform("<Form HasRecordset='0'>" + control + "</Form>"), form + " #1" + inner);
    EXPECT_EQ(subform("<Form HasRecordset='yes'>" + control + "</Form>"), form + " #1" + inner);
    EXPECT_EQ(subform("<Form>" + control + "</Form>"), form + inner);
    EXPECT_EQ(subform("<!--first--><Form HasRecordset='1'/>"), form + "\n");
    EXPECT_EQ(subform("\n"), form + " #0\n  " + kKinds);

    EXPECT_EQ(dumpOf("<db><Form Name='F'><Control ControlType='TabControl' Name='t'><Page Caption='p'>" +
                     control + "</Page></Control></Form></db>"),
              "1k Form \"F\"\n 2k c #0\n  " + std::string(kKinds));
    EXPECT_EQ(dumpOf("<db><Control Name='c'><!--full--></Control></db>"), "1k c\n");
}

// The parent's element of the bound value is that of the tree node: a tab page is passed over.
TEST(XmlTree, BoundValuesAreLookedForInTheOuterControl) {
    const std::string structure =
        "<Control Name='s' ControlType='Subform'><Form><Control Name='t' "
        "ControlType='TabControl'><Page><Control Name='c'/></Page></Control>"
        "</Form></Control>";
    const std::string bound = "<Control Name='c'><BoundValue/></Control>";
    const std::string shown = "1k s\n 2k c #0\n  " + std::string(kKinds);
    EXPECT_EQ(dumpOf("<db>" + structure + "<Data><Control Name='s'>" + bound + "</Control></Data></db>"),
              shown + "  Bound Value\n");
    EXPECT_EQ(dumpOf("<db>" + structure + "<Data><Control Name='s'/>" + bound + "</Data></db>"), shown);
}

TEST(XmlTree, PicturesThatExistAreOfferedAsImages) {
    const std::string folder = testing::TempDir();
    std::ofstream(folder + "tree_logo.png") << "x";
    std::ofstream(folder + "tree.xml") << "<db><Control Name='a' Image='tree_logo.png'/>"
                                          "<Control Name='b' Image='tree_none.png'/></db>";
    StructureDocument document;
    ASSERT_TRUE(document.Load(folder + "tree.xml"));
    TreeView tree;
    RecordingErrorHandler errors;
    CXML2TreeView(tree, document, errors).DisplayXMLNode(0, document.documentElement(), false);
    EXPECT_EQ(dump(tree.First()),
              "1k a #0\n Label\n Image\n Label and Image\n"
              "2k b #0\n Label\n Value\n Label and Value\n");
}

TEST(XmlTree, AWrongViewIsReportedAndTheObjectStillShown) {
    Shown shown("<db><Form Name='F' CurrentView='wide'><Control Name='c'/></Form></db>");
    EXPECT_EQ(dump(shown.tree.First()), "1k Form \"F\"\n 2k c #0\n  " + std::string(kKinds));
    ASSERT_EQ(shown.errors.reports.size(), 1U);
    EXPECT_EQ(shown.errors.reports[0].module, "CXML2TreeView");
    EXPECT_EQ(shown.errors.reports[0].procedure, "FormatNodeString");
    EXPECT_EQ(shown.errors.reports[0].number, 13U);
}

TEST(XmlTree, HangsUnderTheGivenNode) {
    StructureDocument document;
    ASSERT_TRUE(document.loadXML("<Form Name='F'/>"));
    TreeView tree;
    tree.Add(0, 0, "Special");
    RecordingErrorHandler errors;
    CXML2TreeView view(tree, document, errors);
    view.DisplayXMLNode(1, document.documentElement(), false);
    view.DisplayXMLNode(0, XmlNode(), false);
    EXPECT_EQ(dump(tree.First()), "Special\n 1k Form \"F\"\n");
    view.DisplayXMLNode(7, document.documentElement(), false);
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].procedure, "DisplayXMLNode");
}

}  // namespace
}  // namespace mergeloom
