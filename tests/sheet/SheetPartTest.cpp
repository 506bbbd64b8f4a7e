#include "SheetXml.h"
#include "base/AutomationError.h"
#include "office/embedded/sheet/SheetPart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace mergeloom::embedded {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

struct WriteCase {
    const char* name;
    std::string before;
    std::function<void(SheetPart&)> edit;
    std::string after;
};

void PrintTo(const WriteCase& item, std::ostream* out) {
    *out << item.name;
}

std::function<void(SheetPart&)> setting(const char* address, const char* text) {
    return [=](SheetPart& part) { part.setText(at(address), text); };
}

class SheetPartWriteTest : public ::testing::TestWithParam<WriteCase> {};

TEST_P(SheetPartWriteTest, WritesTheEditAndTakesItBack) {
    LoggedSheet sheet(GetParam().before);
    EXPECT_FALSE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.toXml(), GetParam().before);
    sheet.undo.start();
    GetParam().edit(sheet.part);
    EXPECT_TRUE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.toXml(), GetParam().after);
    EXPECT_EQ(sheet.part.toXml(), GetParam().after);
    EXPECT_TRUE(sheet.undo.undo());
    EXPECT_FALSE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.toXml(), GetParam().before);
}

std::string inlineText(const std::string& attributes, const std::string& text) {
    return "<c " + attributes + " t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
}

INSTANTIATE_TEST_SUITE_P(
    Cells, SheetPartWriteTest,
    ::testing::Values(
        WriteCase{"over a number", sheetOf("<row r=\"1\"><c r=\"A1\" s=\"3\"><v>1</v></c></row>"),
                  setting("A1", "x"),
                  sheetOf("<row r=\"1\">" + inlineText("r=\"A1\" s=\"3\"", "x") + "</row>")},
        WriteCase{"into an empty sheet", worksheet("<sheetData/>"), setting("B3", " x"),
                  sheetOf("<row r=\"3\"><c r=\"B3\" t=\"inlineStr\"><is><t xml:space=\"preserve\"> x</t></is>"
                          "</c></row>")}));

}  // namespace
}  // namespace mergeloom::embedded
