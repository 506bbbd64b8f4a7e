#include "base/AutomationError.h"
#include "office/embedded/sheet/SharedStrings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::embedded {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kNamespace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

SharedStrings read(const std::string& xml) {
    return {xml, "/xl/sharedStrings.xml", "Orders.xlsx"};
}

std::vector<std::string> textsOf(const std::string& xml) {
    const SharedStrings strings = read(xml);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < strings.count(); ++i)
        texts.push_back(strings.text(i));
    return texts;
}

std::string table(const std::string& items) {
    return "<?xml version=\"1.0\"?><sst xmlns=\"" + std::string(kNamespace) + "\">" + items + "</sst>";
}

TEST(SharedStrings, JoinRunsAndLeavePhoneticHintsOut) {
    EXPECT_THAT(textsOf(table(
                    "<si><t>one</t></si><si/> <si><t/></si><!-- <si/> -->"
                    "<si><t xml:space=\"preserve\"> a &amp; b </t></si>"
                    "<si><r><rPr><b/></rPr><t>bold</t></r><r><t> and not</t></r></si>"
                    "<si><t>漢字</t><rPh sb=\"0\" eb=\"2\"><t>かんじ</t></rPh><phoneticPr fontId=\"1\"/></si>"
                    "<si><t>a_x000D_b_x005F_x0041_</t></si>"
                    "<si><r><t>_x00</t></r><r><t>41_</t></r></si>"
                    "<extLst><ext><si><t>none</t></si></ext></extLst>")),
                ElementsAre("one", "", "", " a & b ", "bold and not", "漢字", "a\rb_x0041_", "_x0041_"));
}

TEST(SharedStrings, AreReadWithAPrefixAndInUtf16) {
    const std::string prefixed = "<x:sst xmlns:x=\"" + std::string(kNamespace) +
                                 "\"><x:si><x:t>a</x:t><t>other</t></x:si><si/></x:sst>";
    EXPECT_THAT(textsOf(prefixed), ElementsAre("a"));
    std::string wide = "\xFF\xFE";
    for (const char character : table("<si><t>wide</t></si>")) {
        wide += character;
        wide += '\0';
    }
    EXPECT_THAT(textsOf(wide), ElementsAre("wide"));
}

TEST(SharedStrings, AreNoneWithoutAPart) {
    EXPECT_EQ(SharedStrings().count(), 0U);
    EXPECT_THROW(static_cast<void>(SharedStrings().text(0)), AutomationError);
}

TEST(SharedStrings, RefuseWhatIsMalformedAndNumbersBeyondTheLast) {
    for (const std::string& xml :
         {std::string(), std::string("<sst><si>"), std::string("<styleSheet/>"), table("<si><t></si>"),
          table("") + "<sst/>", "<!DOCTYPE sst>" + table("")}) {
        try {
            read(xml);
            ADD_FAILURE() << xml << " was taken";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
            EXPECT_THAT(error.what(), AllOf(HasSubstr("Orders.xlsx"), HasSubstr("/xl/sharedStrings.xml")))
                << xml;
        }
    }
    EXPECT_THROW(static_cast<void>(read(table("<si/>")).text(1)), AutomationError);
}

}  // namespace
}  // namespace mergeloom::embedded
