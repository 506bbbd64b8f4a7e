#include "AutoMappingTest.h"
#include "doubles/WordFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom {
namespace {

/// Mappings that find no node, or only some of the nodes.
class EmptyMapping : public AutoMappingTest {
  protected:
    void putDocuments() override { folder.put("labels.docx", wordFile("<w:p/>")); }

    static std::string form(const std::string& controls) {
        return "<Form Name='L' CurrentView='1'>" + controls + "</Form>";
    }
};

TEST_F(EmptyMapping, TellsWhatWasLookedFor) {
    struct Case {
        std::string object;
        std::vector<std::string> layout;
        std::string expected;
        bool inExcel = true;
    };
    const std::string fullSubform =
        "<Control Name='S' ControlType='Subform'><Form><Control Name='X'/></Form></Control>";
    const std::vector<Case> cases{
        {form(""), {}, "no Control element was found in Form \"L\"."},
        {form(""), {"-listing"}, "no Control element was found in Form \"L\"."},
        {form("<Control Name='A' Caption=''/><Control Name='B' Caption=''/>"),
         {},
         "all 2 Control elements in Form \"L\" have an empty caption, or no attribute that is spelt "
         "\"Caption\" or \"Name\"."},
        {form("<Control name='A' caption='A'/>"),
         {"-listing"},
         "the only Control element in Form \"L\" has an empty caption, or no attribute that is spelt "
         "\"Caption\" or \"Name\"."},
        {form("<Control Name='T' ControlType='TabControl'/>"),
         {},
         "no Control element was found in Form \"L\"."},
        {form("<Control Name='A' Section='1'/><Control Name='B' Section='2'/>"),
         {"-listing"},
         "no field was found in the detail section of Form \"L\" that can be a column of a table."},
        {form(fullSubform),
         {"-listing"},
         "no field was found in the detail section of Form \"L\" that can be a column of a table."},
        {form(fullSubform),
         {"-label", "%/labels.docx"},
         "only subforms were found in Form \"L\", which no label can hold.",
         false},
        {"<Form Name='L' currentview='1'><Control Name='A'/></Form>",
         {},
         "Form \"L\" has no attribute that is spelt \"CurrentView\", which decides the layout."},
        {form("<Control Name='S' ControlType='Subform'><Form HasRecordset='1'/></Control>"),
         {},
         "only subforms were found in Form \"L\", and no control in them that can be dropped."},
    };
    for (const Case& c : cases) {
        for (const std::string& extension : {std::string("dotx"), std::string("xltx")}) {
            if (extension == "xltx" && !c.inExcel) continue;
            messages.messages.clear();
            folder.put("empty.xml", "<db>" + c.object + "</db>");
            std::vector<std::string> arguments{"-xmlfile", "%/empty.xml", "-template", "%/new." + extension};
            if (extension == "xltx") arguments.emplace_back("-excel");
            gExcelMode = extension == "xltx" ? 1 : 0;
            arguments.insert(arguments.end(), c.layout.begin(), c.layout.end());
            EXPECT_EQ(run(arguments), 0U);
            EXPECT_FALSE(made) << c.object;
            ASSERT_FALSE(messages.messages.empty()) << c.object;
            EXPECT_EQ(messages.messages.back().text, "Nothing was dropped: " + c.expected) << c.object;
            EXPECT_FALSE(exists("new." + extension)) << c.object;
        }
    }
}

TEST_F(EmptyMapping, NamesTheControlsThatAreLeftOut) {
    folder.put(
        "some.xml",
        form("<Control Name='A' Caption=''/><Control Name='B'/><Control Name='C' Caption=' :'/>"
             "<Control Name='S' ControlType='Subform'><Form><Control Name='X'/><Control/></Form></Control>"));
    run({"-xmlfile", "%/some.xml", "-template", "%/new.dotx"});
    EXPECT_TRUE(made);
    EXPECT_EQ(messages.texts(),
              "Left out of Form \"L\" for want of a caption: \"A\", \"C\" and 1 control without a name.\n");
}

}  // namespace
}  // namespace mergeloom
