#include "DropTest.h"
#include "droppers/CNodeDropperField.h"
#include "droppers/CNodeDropperLabel.h"

#include <string>
#include <vector>

namespace mergeloom {
namespace {

/// A picture of one grey pixel (PNG).
const std::string kPicture(
    "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\0\0\0\0:~\x9bU\0\0\0\nIDATx\x9c\x63h\0\0\0\x82\0\x81w"
    "\xcdr\xb6\0\0\0\0IEND\xae\x42`\x82",
    67);

class FieldDrop : public DropTest {
  protected:
    bool dropField(FieldDropArguments arguments) {
        arguments.node = xmlNodes.Item("2k");
        arguments.treeNode = &node("2k");
        DropContext context{reports, xmlNodes, findPicture, progress, {}};
        return CNodeDropperField(context).FieldDrop(arguments, document);
    }

    DropReports reports{errors, messages};
    PictureFinder findPicture = [this](const std::string& image) { return pictures[image]; };
};

TEST_F(FieldDrop, WhatFollowsThePlace) {
    load("<db><Form Name='F'><Control Name='2nd. Name' Caption='Name'/></Form></db>");
    struct Case {
        FieldDropArguments arguments;
        std::string expected;
    };
    const std::vector<Case> cases{
        {{}, "[x2ndName:x2ndName] *\n"},
        {{.addCrLf = true}, "[x2ndName:x2ndName]\n*\n"},
        {{.labelRequired = true}, "Name: [x2ndName:x2ndName]\n*\n"},
        {{.parentName = "Sub ", .boundValueUse = true}, "[Subx2ndName_bv:x2ndName] *\n"},
    };
    for (const Case& c : cases) {
        open();
        EXPECT_TRUE(dropField(c.arguments));
        selection()->TypeText("*");
        EXPECT_EQ(body(), c.expected);
    }
}

TEST_F(FieldDrop, TheSameFieldAgainAndAgain) {
    load("<db><Form Name='F'><Control Name='Name'/></Form></db>");
    open();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(dropField({}));
    EXPECT_EQ(body(), "[Name:Name] [Name_ref1:Name] [Name_ref2:Name] \n");
}

TEST_F(FieldDrop, AnImageControlShowsItsPicture) {
    load("<db><Form Name='F'><Control Name='Logo' Image='logo.png'/></Form></db>");
    open();
    pictures["logo.png"] = "/pictures/logo.png";
    files.files["/pictures/logo.png"] = kPicture;
    EXPECT_TRUE(dropField({.labelRequired = true}));
    EXPECT_EQ(body(), "Logo: [Logo:<picture>]\n\n");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(FieldDrop, ATableFieldBelongsIntoItsTable) {
    load("<db><Form Name='F'><Control Name='Price'/></Form></db>");
    const FieldDropArguments arguments{.isTableField = true, .tableName = "OrderLines"};
    open();
    EXPECT_TRUE(dropField(arguments)) << "no table of that name is there";

    open();
    placeAtCaret("OrderLines", "table");
    selection()->TypeText(" ");
    const std::string before = body();
    EXPECT_FALSE(dropField(arguments));
    EXPECT_EQ(messages.texts(),
              "The field may only be dropped on a table\u2019s merge area if it is a tablefield.\n");
    EXPECT_EQ(body(), before);

    goTo("OrderLines", word::WdCollapseDirection::wdCollapseStart);
    EXPECT_TRUE(dropField(arguments)) << "in the table's place";
}

TEST_F(FieldDrop, NothingIsDroppedWithoutAnElement) {
    load("<db><Form Name='F'/></db>");
    open();
    DropContext context{reports, xmlNodes, findPicture, progress, {}};
    EXPECT_FALSE(CNodeDropperField(context).FieldDrop({}, document));
    EXPECT_FALSE(CNodeDropperField(context).FieldDrop({.node = xmlNodes.Item("1k")}, nullptr));
    EXPECT_FALSE(CNodeDropperLabel(reports).LabelDrop({}, document, false));
    EXPECT_EQ(body(), "\n");
}

TEST_F(FieldDrop, Labels) {
    struct Case {
        std::string control;
        bool addTab;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"Name='N' Caption='&amp;Customer'", true, "Customer: \n"},
        {"Name='N' Caption='Customer:'", true, "Customer: \n"},
        {"Name='N' Caption='Customer:'", false, "Customer:\n"},
        {"Name='N'", false, "N\n"},
        {"Name='N' Caption=''", true, "\n"},
        {"ControlType='Textbox'", true, "\n"},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(structure.loadXML("<db><Control " + c.control + "/></db>"));
        open();
        const XmlNode control = structure.documentElement().firstChild();
        EXPECT_EQ(CNodeDropperLabel(reports).LabelDrop(control, document, c.addTab), c.expected != "\n");
        EXPECT_EQ(body(), c.expected) << c.control;
    }
}

TEST_F(FieldDrop, ALabelReplacesTheSelectionButNoField) {
    load("<db><Form Name='F'><Control Name='N' Caption='Label'/></Form></db>");
    open();
    selection()->SetText("selected");
    EXPECT_TRUE(CNodeDropperLabel(reports).LabelDrop(xmlNodes.Item("2k"), document, false));
    EXPECT_EQ(body(), "Label\n");

    open();
    placeAtCaret("Customer", "customer");
    EXPECT_FALSE(CNodeDropperLabel(reports).LabelDrop(xmlNodes.Item("2k"), document, false));
    EXPECT_EQ(body(), "[Customer:customer]\n");
    EXPECT_EQ(messages.texts(), "Do not drop fields on top of existing fields.\n");
}

}  // namespace
}  // namespace mergeloom
