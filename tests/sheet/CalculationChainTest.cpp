#include "base/AutomationError.h"
#include "office/embedded/sheet/CalculationChain.h"
#include "sheet/SheetXml.h"
#include "sheet/WorkbookFiles.h"

#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

const std::string kChainName = "/xl/calcChain.xml";

std::string chainXml(const std::string& entries) {
    return "<calcChain xmlns=\"" + std::string(kMainNamespace) + "\">" + entries + "</calcChain>";
}

/// A workbook with a calculation chain of these entries.
class CalculationChainTest : public testing::Test {
  protected:
    void read(const std::string& entries) {
        package_.addPart(kChainName, kSheetTypes + "calcChain+xml", chainXml(entries));
        if (!isRelated()) {
            package_.relationshipsOf(kWorkbookName).addPart(relationType("calcChain"), kChainName);
        }
    }
    void remove(int sheetId, const char* cell) { chain_.remove(sheetId, at(cell)); }
    std::string stored() {
        chain_.store();
        return package_.readPart(kChainName);
    }
    bool isRelated() { return !package_.relationshipsOf(kWorkbookName).ofOfficeType("calcChain").empty(); }

    UndoLog undo_;
    opc::Package package_ = oneSheetPackage();
    CalculationChain chain_{package_, kWorkbookName, undo_};
};

TEST_F(CalculationChainTest, GoesWithAllItsCells) {
    read("<c r=\"A1\" i=\"1\"/><c r=\"B1\" l=\"1\"/>");
    undo_.start();
    chain_.clear();
    chain_.store();
    EXPECT_FALSE(package_.hasPart(kChainName));
    EXPECT_FALSE(isRelated());
    undo_.undo();
    EXPECT_EQ(stored(), chainXml("<c r=\"A1\" i=\"1\"/><c r=\"B1\" l=\"1\"/>"));
}

TEST_F(CalculationChainTest, TakesOutTheCellOfThatSheetOnly) {
    read("<c r=\"A1\" i=\"1\"/><c r=\"B1\"/><c r=\"A1\" i=\"2\"/><c r=\"C1\"/><c r=\"C1\"/><x/>");
    remove(2, "B1");
    remove(3, "A1");
    EXPECT_EQ(stored(), package_.readPart(kChainName));
    remove(2, "C1");
    remove(1, "B1");
    EXPECT_EQ(stored(), chainXml("<c r=\"A1\" i=\"1\"/><c r=\"A1\" i=\"2\"/><x/>"));
}

TEST_F(CalculationChainTest, NextEntryTakesOverWhatItInherited) {
    read("<c r=\"A1\" i=\"1\" l=\"1\"/><c r=\"B1\"/><c r=\"C1\" s=\"1\"/><c r=\"A1\" i=\"2\"/>");
    undo_.start();
    remove(1, "A1");
    EXPECT_EQ(stored(), chainXml("<c r=\"B1\" i=\"1\" l=\"1\"/><c r=\"C1\" s=\"1\"/><c r=\"A1\" i=\"2\"/>"));
    remove(1, "B1");
    EXPECT_EQ(stored(), chainXml("<c r=\"C1\" s=\"1\" i=\"1\" l=\"1\"/><c r=\"A1\" i=\"2\"/>"));
    remove(1, "C1");
    EXPECT_EQ(stored(), chainXml("<c r=\"A1\" i=\"2\" l=\"1\"/>"));
    undo_.undo();
    EXPECT_EQ(stored(), chainXml("<c r=\"A1\" i=\"1\" l=\"1\"/><c r=\"B1\"/><c r=\"C1\" s=\"1\"/>"
                                 "<c r=\"A1\" i=\"2\"/>"));
}

TEST_F(CalculationChainTest, WhatIsTakenBackCanBeTakenOutAgain) {
    read("<c r=\"A1\" i=\"1\"/><c r=\"B1\"/>");
    undo_.start();
    remove(1, "B1");
    undo_.undo();
    remove(1, "B1");
    EXPECT_EQ(stored(), chainXml("<c r=\"A1\" i=\"1\"/>"));
}

TEST_F(CalculationChainTest, EmptyChainGoesAndComesBack) {
    const std::string entries = "<c r=\"A1\" i=\"1\"/><extLst/>";
    read(entries);
    undo_.start();
    remove(1, "A1");
    chain_.store();
    EXPECT_FALSE(package_.hasPart(kChainName));
    EXPECT_FALSE(isRelated());
    EXPECT_EQ(package_.contentTypes().of(kChainName), "application/xml");
    undo_.undo();
    EXPECT_EQ(stored(), chainXml(entries));
    EXPECT_TRUE(isRelated());
    EXPECT_EQ(package_.contentTypes().of(kChainName), kSheetTypes + "calcChain+xml");
}

TEST_F(CalculationChainTest, WorkbookNeedsNoChain) {
    remove(1, "A1");
    chain_.store();
    EXPECT_FALSE(package_.hasPart(kChainName));
}

TEST_F(CalculationChainTest, MalformedChainIsToldEachTime) {
    package_.addPart(kChainName, kSheetTypes + "calcChain+xml", "<calcChain><c></calcChain>");
    package_.relationshipsOf(kWorkbookName).addPart(relationType("calcChain"), kChainName);
    EXPECT_THROW(remove(1, "A1"), AutomationError);
    EXPECT_THROW(remove(1, "A1"), AutomationError);
}

TEST_F(CalculationChainTest, ManyCellsGoInLinearTime) {
    constexpr int kMany = 100'000;
    std::string entries = "<c r=\"XFD1048576\" i=\"1\"/>";
    for (int row = 1; row <= kMany; ++row)
        entries += "<c r=\"A" + std::to_string(row) + "\"/>";
    read(entries);
    for (int row = kMany; row > 0; --row)
        chain_.remove(1, {row, 1});
    EXPECT_EQ(stored(), chainXml("<c r=\"XFD1048576\" i=\"1\"/>"));
}

}  // namespace
}  // namespace mergeloom::embedded
