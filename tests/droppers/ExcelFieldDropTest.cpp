#include "ExcelDropTest.h"
#include "droppers/CNodeDropperField.h"
#include "droppers/CNodeDropperLabel.h"

#include <array>
#include <vector>

namespace mergeloom {
namespace {

class ExcelFieldDrop : public ExcelDropTest {
  protected:
    int dropField(FieldDropArguments arguments) {
        arguments.node = xmlNodes.Item("2k");
        arguments.treeNode = &node("2k");
        DropContext context{reports, xmlNodes, findPicture, progress, {}};
        return CNodeDropperField(context).xlFieldDrop(arguments, workbook);
    }

    DropReports reports{errors, messages};
    PictureFinder findPicture = [this](const std::string& image) { return pictures[image]; };
};

TEST_F(ExcelFieldDrop, RowsAndNames) {
    load("<db><Form Name='F'><Control Name='2nd. Name' Caption='&amp;Name:'/></Form></db>");
    struct Case {
        FieldDropArguments arguments;
        const char* merged;
        int expectedRows;
        std::string expectedCells, expectedNames;
    };
    const std::vector<Case> cases{
        {{}, "J1:K2", 1, "[x2ndName]\n", "ammx2ndName=A1 "},
        {{}, "A1:B3", 3, "[x2ndName]\n", "ammx2ndName=A1 "},
        {{.labelRequired = true}, "J1:K2", 1, "Name:|[x2ndName]\n", "ammx2ndName=B1 "},
        {{.labelRequired = true}, "A1:A2", 2, "Name:|[x2ndName]\n", "ammx2ndName=B1 "},
        {{.labelRequired = true}, "B1:B4", 4, "Name:|[x2ndName]\n", "ammx2ndName=B1 "},
        {{.parentName = "S", .boundValueUse = true}, "J1:K2", 1, "[Sx2ndName_bv]\n", "ammSx2ndName_bv=A1 "},
    };
    for (const Case& c : cases) {
        openMerged(c.merged);
        goTo(1, 1);
        EXPECT_EQ(dropField(c.arguments), c.expectedRows) << c.merged;
        EXPECT_EQ(cells(), c.expectedCells) << c.merged;
        EXPECT_EQ(names(), c.expectedNames) << c.merged;
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelFieldDrop, AnImageControlShowsItsPicture) {
    load("<db><Form Name='F'><Control Name='Logo' Image='logo.gif'/></Form></db>");
    open();
    pictures["logo.gif"] = "/pictures/logo.gif";
    files.files["/pictures/logo.gif"] = pictureFile(30, 60);
    EXPECT_EQ(dropField({.labelRequired = true}), 1);
    EXPECT_EQ(cells() + names() + shapes(), "Logo\nammLogo=B1 ammLogo:B1 ");

    pictures["logo.gif"] = "";
    goTo(5, 1);
    EXPECT_EQ(dropField({}), 1) << "the file is missing";
    EXPECT_EQ(cell(5, 1)->Value(), "[Logo]");
    EXPECT_TRUE(errors.reports.empty());
}

/// A cell has one place, which is the last one. Undoing restores the former place.
TEST_F(ExcelFieldDrop, APlaceReplacesTheFormerOneOfItsCell) {
    load(
        R"(<db><Form Name='F'><Control Name='A'/><Control Name='B' Caption='Bee'/><Control Name='P' Image='p.gif'/>
            <Control Name='Q' Image='q.gif'/></Form></db>)");
    for (const char* const picture : {"p.gif", "q.gif"}) {
        pictures[picture] = std::string("/") + picture;
        files.files[pictures[picture]] = pictureFile(40, 20);
    }
    constexpr const char *kA = "2k", *kB = "3k", *kP = "4k", *kQ = "5k";
    struct Case {
        const char* what;
        std::vector<std::string> drops;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"another field", {kA, kB}, "[B]\nammB=A1 "},
        {"the same field keeps its name", {kA, kA}, "[A]\nammA=A1 "},
        {"the same picture", {kP, kP}, "ammP=A1 ammP:A1 "},
        {"a picture over a text", {kA, kP}, "ammP=A1 ammP:A1 "},
        {"a text under a picture", {kP, kA}, "[A]\nammA=A1 "},
        {"another picture", {kP, kQ}, "ammQ=A1 ammQ:A1 "},
    };
    const auto state = [this] { return cells() + names() + shapes(); };
    for (const Case& c : cases) {
        open();
        std::string before;
        for (const std::string& dropped : c.drops) {
            before = state();
            goTo(1, 1);
            EXPECT_TRUE(drop(node(dropped, "Value"))) << c.what;
        }
        EXPECT_EQ(state(), c.expected) << c.what;
        EXPECT_TRUE(workbook->Undo(1)) << c.what;
        EXPECT_EQ(state(), before) << c.what;
    }
}

TEST_F(ExcelFieldDrop, NamesThatAreNoFormerPlacesStay) {
    load("<db><Form Name='F'><Control Name='A'/></Form></db>");
    for (const auto& [name, refersTo, text] : std::vector<std::array<std::string, 3>>{
             {"ammB", "=$A$1", "Total"},
             {"Rate", "=$A$1", "[Rate]"},
             {"ammB", "=$A$1:$B$2", "[B]"},
             {"ammB", "=$B$1", "[B]"},
             {"ammB", "=#REF!", "[B]"},
             {"ammB_refs", "=$A$1", "[B]"},
         }) {
        open();
        workbook->Names()->Add(name, refersTo);
        cell(1, 1)->SetValue(text);
        goTo(1, 1);
        EXPECT_TRUE(drop(node("2k", "Value"))) << name << refersTo;
        EXPECT_TRUE(workbook->Names()->Exists(name)) << name << refersTo << text;
        EXPECT_TRUE(workbook->Names()->Exists("ammA")) << name << refersTo;
    }
}

TEST_F(ExcelFieldDrop, ATableFieldBelongsIntoItsTable) {
    load("<db><Form Name='F'><Control Name='Price'/></Form></db>");
    struct Case {
        const char* what;
        std::string refersTo;
        bool isTableField;
        bool expected;
    };
    const std::vector<Case> cases{
        {"inside", "=$B$2:$C$3", true, true},
        {"outside", "=$D$4:$E$5", true, false},
        {"no table field", "=$D$4:$E$5", false, true},
        {"a name that stands for no cells", "=1", true, true},
        {"a name that has lost its cells", "=#REF!", true, true},
    };
    for (const Case& c : cases) {
        open();
        workbook->Names()->Add("ammLines", c.refersTo);
        goTo(3, 3);
        messages.messages.clear();
        const int rows = dropField({.isTableField = c.isTableField, .tableName = "ammLines"});
        EXPECT_EQ(rows, c.expected ? 1 : 0) << c.what;
        EXPECT_EQ(cells(3, 3), c.expected ? "[Price]\n" : "") << c.what;
        EXPECT_EQ(
            messages.texts(),
            c.expected
                ? ""
                : "The field may only be dropped on a table\u2019s merge area if it is a tablefield.\n");
    }
    open();
    EXPECT_EQ(dropField({.isTableField = true, .tableName = "ammLines"}), 1) << "no table of that name";
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelFieldDrop, NothingIsDroppedWithoutAnElement) {
    load("<db><Form Name='F'><Control Name='S' ControlType='Subform'/></Form></db>");
    open();
    DropContext context{reports, xmlNodes, findPicture, progress, {}};
    CNodeDropperField dropper{context};
    EXPECT_EQ(dropper.xlFieldDrop({}, workbook), 0);
    EXPECT_EQ(dropper.xlFieldDrop({.node = xmlNodes.Item("1k")}, nullptr), 0);
    EXPECT_EQ(dropper.xlFieldDrop({.node = xmlNodes.Item("2k"), .labelRequired = true}, workbook), 0)
        << "a subform without its node";
    EXPECT_FALSE(CNodeDropperLabel(reports).xlLabelDrop({}, workbook));
    EXPECT_FALSE(CNodeDropperLabel(reports).xlLabelDrop(xmlNodes.Item("1k"), nullptr));
    EXPECT_EQ(cells(), "");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelFieldDrop, ALabelGoesIntoEverySelectedCell) {
    struct Case {
        std::string control, expected;
    };
    const std::vector<Case> cases{
        {"Name='N' Caption='&amp;Customer'", "Customer|Customer\nCustomer|Customer\n"},
        {"Name='N' Caption='0012'", "0012|0012\n0012|0012\n"},
        {"Name='N' Caption='=A1'", "=A1|=A1\n=A1|=A1\n"},
        {"Name='N'", "N|N\nN|N\n"},
        {"Name='N' Caption=''", ""},
        {"ControlType='Textbox'", ""},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(structure.loadXML("<db><Control " + c.control + "/></db>"));
        open();
        cell(2, 2)->Resize(2, 2)->Select();
        const XmlNode control = structure.documentElement().firstChild();
        EXPECT_EQ(CNodeDropperLabel(reports).xlLabelDrop(control, workbook), !c.expected.empty());
        EXPECT_EQ(cells(2, 2), c.expected) << c.control;
    }
}

}  // namespace
}  // namespace mergeloom
