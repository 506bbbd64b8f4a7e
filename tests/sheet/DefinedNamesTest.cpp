#include "base/AutomationError.h"
#include "office/embedded/sheet/DefinedNames.h"
#include "office/embedded/sheet/WorkbookPart.h"
#include "sheet/WorkbookFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace mergeloom::embedded {
namespace {

using testing::HasSubstr;

const std::string kForeign =
    "<definedNames><definedName name=\"_xlnm.Print_Area\" localSheetId=\"0\">S1!$A$1:$B$9</definedName>"
    "<!-- kept --><definedName name=\"Price\" comment=\"net\" hidden=\"1\" x=\"y\">S1!$A$1</definedName>"
    "<definedName name=\"Price\" localSheetId=\"0\">S1!$C$3</definedName>"
    "<definedName name=\"Lost\" localSheetId=\"7\">S1!$A$1</definedName>"
    "<definedName name=\"Lost\" localSheetId=\"-1\">S1!$A$1</definedName>"
    "<definedName>S1!$A$1</definedName>"
    "<definedName name=\"Joined\">S1!<![CDATA[$A]]>$2</definedName></definedNames>";

/// Returns a workbook with one sheet and the given XML after the list of sheets.
class DefinedNamesTest : public testing::Test {
  protected:
    void read(const std::string& children) {
        children_ = children;
        package_.emplace(oneSheetPackage(children));
        book_.emplace(*package_, undo_);
    }
    DefinedNames& names() { return book_->names(); }
    /// Returns the XML after the list of sheets.
    std::string written() {
        const std::string xml = book_->toXml();
        const std::size_t start = xml.find("</sheets>") + 9;
        return xml.substr(start, xml.find("</workbook>") - start);
    }
    void expectUnchanged() {
        EXPECT_EQ(written(), children_);
        EXPECT_FALSE(book_->isDirty());
    }

    UndoLog undo_;

  private:
    std::string children_;
    std::optional<opc::Package> package_;
    std::optional<WorkbookPart> book_;
};

TEST_F(DefinedNamesTest, AreReadByScopeWithoutRegardToCase) {
    read(kForeign);
    ASSERT_EQ(names().count(), 4U);
    EXPECT_EQ(names().find("PRICE"), 1U);
    EXPECT_EQ(names().find("price", 0), 2U);
    EXPECT_EQ(names().find("Lost"), std::nullopt);
    EXPECT_EQ(names().find("Lost", 7), std::nullopt);
    EXPECT_EQ(names().find("_xlnm.print_area", 0), 0U);
    EXPECT_TRUE(names().at(1).hidden);
    EXPECT_EQ(names().at(1).sheet, DefinedNames::kWorkbook);
    EXPECT_EQ(names().at(2).sheet, 0);
    EXPECT_FALSE(names().at(2).hidden);
    EXPECT_EQ(names().at(3).formula, "S1!$A$2");
}

TEST_F(DefinedNamesTest, DefiningAnewReplacesTheFormulaOnly) {
    read(kForeign);
    undo_.start();
    EXPECT_EQ(names().define("price", "S1!$A$1"), 1U);
    expectUnchanged();
    EXPECT_EQ(names().define("price", "S1!$B$2"), 1U);
    EXPECT_THAT(written(),
                HasSubstr("<definedName name=\"Price\" comment=\"net\" hidden=\"1\" x=\"y\">S1!$B$2<"));
    EXPECT_THAT(written(), HasSubstr("<definedName name=\"Price\" localSheetId=\"0\">S1!$C$3<"));
    names().setFormula(3, "'A & B'!$A$1");
    EXPECT_THAT(written(), HasSubstr("<definedName name=\"Joined\">'A &amp; B'!$A$1</definedName>"));
    undo_.undo();
    EXPECT_EQ(names().at(1).formula, "S1!$A$1");
    EXPECT_EQ(names().at(3).formula, "S1!$A$2");
}

TEST_F(DefinedNamesTest, NewOnesFollowTheOthersAndCanBeTakenBack) {
    read(kForeign + "<calcPr/>");
    undo_.start();
    EXPECT_EQ(names().define("Ort", "S1!$D$4"), 4U);
    EXPECT_EQ(names().find("ORT"), 4U);
    EXPECT_THAT(written(),
                HasSubstr("<definedName name=\"Ort\">S1!$D$4</definedName></definedNames><calcPr/>"));
    undo_.undo();
    expectUnchanged();
    EXPECT_EQ(names().find("Ort"), std::nullopt);
    EXPECT_EQ(names().count(), 4U);
}

TEST_F(DefinedNamesTest, ListComesInAtItsPlace) {
    const struct {
        std::string before, behind;
    } cases[] = {
        {"", ""},
        {"", "<calcPr/>"},
        {"<functionGroups/><externalReferences/>", "<calcPr/><extLst/>"},
        {"<functionGroups/>", "<pivotCaches/>"},
    };
    for (const auto& [before, behind] : cases) {
        read(before + behind);
        undo_.start();
        names().define("A.b", "S1!$A$1");
        EXPECT_EQ(
            written(),
            before + "<definedNames><definedName name=\"A.b\">S1!$A$1</definedName></definedNames>" + behind);
        undo_.undo();
        expectUnchanged();
    }
}

TEST_F(DefinedNamesTest, NamesFromAfterTheRecordedStepOutliveIt) {
    read("");
    undo_.start();
    names().define("Step", "S1!$A$1");
    undo_.stop();
    names().define("Later", "S1!$A$2");
    undo_.undo();
    EXPECT_EQ(names().find("Step"), std::nullopt);
    ASSERT_EQ(names().find("Later"), 0U);
    EXPECT_EQ(names().at(0).name, "Later");
    EXPECT_EQ(written(), "<definedNames><definedName name=\"Later\">S1!$A$2</definedName></definedNames>");
}

TEST_F(DefinedNamesTest, WhatIsNoNameIsRefused) {
    read("");
    try {
        names().define("A1", "S1!$A$1");
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kApplicationDefined);
        EXPECT_THAT(error.description(), HasSubstr("A1"));
    }
    expectUnchanged();
}

TEST_F(DefinedNamesTest, CounterIsTheFirstFreeOneOfTheWorkbook) {
    read(
        "<definedNames><definedName name=\"X_ref1\">A1</definedName>"
        "<definedName name=\"X_ref3\">A1</definedName>"
        "<definedName name=\"X_ref2\" localSheetId=\"0\">A1</definedName></definedNames>");
    EXPECT_EQ(names().firstFreeCounter("x_REF"), 2);
    EXPECT_EQ(names().firstFreeCounter("X_ref"), 2);
    names().define("X_ref2", "S1!$A$1");
    EXPECT_EQ(names().firstFreeCounter("X_ref"), 4);
    EXPECT_EQ(names().firstFreeCounter("Y"), 1);
}

TEST_F(DefinedNamesTest, CounterIsRightAgainAfterAnUndo) {
    read("");
    for (int i = 1; i <= 11; ++i)
        names().define("X_ref" + std::to_string(i), "S1!$A$1");
    EXPECT_EQ(names().firstFreeCounter("X_ref"), 12);
    undo_.start();
    names().define("X_ref12", "S1!$A$1");
    EXPECT_EQ(names().firstFreeCounter("X_ref"), 13);
    EXPECT_EQ(names().firstFreeCounter("X_ref1"), 3);
    names().define("x_REF13", "S1!$A$1");
    EXPECT_EQ(names().firstFreeCounter("X_ref1"), 4);
    undo_.undo();
    EXPECT_EQ(names().firstFreeCounter("X_ref"), 12);
    EXPECT_EQ(names().firstFreeCounter("X_ref1"), 2);
}

TEST_F(DefinedNamesTest, ManyNamesTakeTheirTimeOnce) {
    constexpr int kMany = 100'000;
    read("");
    for (int i = 1; i <= kMany; ++i) {
        const std::int64_t counter = names().firstFreeCounter("Field_ref");
        ASSERT_EQ(counter, i);
        names().define("Field_ref" + std::to_string(counter), "S1!$A$1");
    }
    EXPECT_EQ(names().find("FIELD_REF77777"), 77776U);
    EXPECT_EQ(names().count(), static_cast<std::size_t>(kMany));
}

}  // namespace
}  // namespace mergeloom::embedded
