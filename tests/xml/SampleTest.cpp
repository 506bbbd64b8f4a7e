#include "RecordingErrorHandler.h"
#include "xml/COptions.h"
#include "xml/CXML2TreeView.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom {
namespace {

/// Returns a control and its drop kinds, "Customer: Label, Value", with controls below it in brackets.
std::string line(const TreeNode& node) {
    std::string text = node.Text();
    for (TreeNode* child = node.Child(); child != nullptr; child = child->Next()) {
        text += child == node.Child() ? ": " : ", ";
        text += child->Key().empty() ? child->Text() : "(" + line(*child) + ")";
    }
    return text;
}

TEST(Sample, ShowsTheOrdersFormFirst) {
    StructureDocument document;
    ASSERT_TRUE(document.Load(MERGELOOM_SAMPLES "/orders.xml")) << document.parseError().reason;
    RecordingErrorHandler errors;
    TreeView tree;
    CXML2TreeView(tree, document, errors).DisplayXMLNode(0, document.documentElement(), true);

    const TreeNode* const form = tree.First();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Text(), "Form \"Orders\"");
    EXPECT_EQ(form->Tag(), "1");
    std::vector<std::string> lines;
    for (TreeNode* node = form->Child(); node != nullptr; node = node->Next())
        lines.push_back(line(*node));
    const std::string field = ": Label, Value, Label and Value";
    const std::string bound = field + ", Bound Value";
    const std::string picture = ": Label, Image, Label and Image";
    const std::vector<std::string> expected = {
        "Letterhead" + picture,
        "Order No." + field,
        "Order date" + bound,
        "Customer" + bound,
        "Buyer's contact" + field,
        "Taken by" + bound,
        "Priority" + bound,
        "Confirmed" + bound,
        "Paid in advance" + bound,
        "Ship & bill to" + field,
        "Address" + field,
        "Postcode" + field,
        "Town" + field,
        "Carrier" + bound,
        "Required by" + bound,
        "Remarks" + field,
        "Sketch or photo" + picture,
        "Order lines: (Line" + field + "), (Product" + bound + "), (Quantity" + field + "), (Unit price" +
            bound + "), (Total" + field + ")",
        "Totals: (Net total" + field + "), (Freight" + field + "), (To pay" + field + ")",
        "Printed on" + field};
    EXPECT_EQ(lines, expected);

    COptions options(errors);
    options.init(document.documentElement());
    EXPECT_EQ(options.TemplatesFolder(), "/srv/harbour-and-pine/templates");
    EXPECT_TRUE(errors.reports.empty());
}

}  // namespace
}  // namespace mergeloom
