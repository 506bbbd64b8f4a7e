#include "contract/word/WordFixture.h"

namespace mergeloom {
namespace {

class OfficeBookmarks : public WordOffice {
  protected:
    void type(const std::string& text) {
        add();
        selection->TypeText(text);
    }
};
INSTANTIATE_TEST_SUITE_P(Offices, OfficeBookmarks, kOffices, nameOfOffice);

TEST_P(OfficeBookmarks, TextAtTheirEndsFollowsWord) {
    struct Case {
        std::int64_t start, end;  ///< what is replaced
        std::string text;
        std::string expectedBody;
    };
    const std::vector<Case> cases{
        {4, 4, "x", "one [Two:xtwo] three\n"},
        {5, 5, "x", "one [Two:txwo] three\n"},
        {7, 7, "x", "one [Two:two]x three\n"},
        {3, 4, "", "one[Two:two] three\n"},
        {4, 5, "", "one [Two:wo] three\n"},
        {4, 5, "X", "one [Two:Xwo] three\n"},
        {6, 7, "X", "one [Two:tw]X three\n"},
        {4, 7, "X", "one X three\n"},
        {3, 8, "X", "oneXthree\n"},
        {2, 5, "X", "on[Two:Xwo] three\n"},
        {0, 13, "", "\n"},
    };
    for (const Case& c : cases) {
        type("one two three");
        mark("Two", 4, 7);
        const word::RangePtr edited = mark("Edited", c.start, c.end)->Range();
        mark("Edited", 13, 13);
        edited->SetText(c.text);
        std::string expected = c.expectedBody;
        const std::string shownBody = body();
        const std::string aside = "[Edited:]";
        const std::size_t at = shownBody.find(aside);
        EXPECT_EQ(at == std::string::npos ? shownBody : std::string(shownBody).erase(at, aside.size()),
                  expected)
            << c.start << "-" << c.end << " '" << c.text << "'";
    }
}

TEST_P(OfficeBookmarks, NestTouchAndOverlap) {
    type("one two three");
    mark("Outer", 0, 13);
    mark("Left", 0, 4);
    mark("Right", 4, 8);
    mark("Across", 2, 6);
    mark("Empty", 4, 4);
    struct Case {
        std::int64_t start, end;
        std::string expected;
    };
    const std::vector<Case> cases{
        {4, 4, "Outer Left Across Right Empty"},
        {0, 0, "Outer Left"},
        {13, 13, "Outer"},
        {0, 2, "Outer Left"},
        {3, 5, "Outer Left Across Right Empty"},
        {6, 8, "Outer Right"},
    };
    for (const Case& c : cases) {
        mark("zz", c.start, c.end)->Select();
        mark("zz", 13, 13);
        std::string found = names(*selection->Bookmarks());
        if (c.start == 13) found = found.substr(0, found.find(" zz"));
        EXPECT_EQ(found, c.expected) << c.start << "-" << c.end;
    }
    EXPECT_EQ(names(*document->Bookmarks()), "Across Empty Left Outer Right zz");
}

TEST_P(OfficeBookmarks, ANameThatIsAddedAgainMoves) {
    type("one two");
    const word::BookmarkPtr first = mark("Place", 0, 3);
    EXPECT_EQ(document->Bookmarks()->Count(), 1);
    document->Bookmarks()->Add("PLACE", *selection->Range());
    EXPECT_EQ(document->Bookmarks()->Count(), 1);
    EXPECT_EQ(at("place"), "7-7");
    EXPECT_EQ(body(), "one two[PLACE:]\n");
}

TEST_P(OfficeBookmarks, EndsDragEachOtherAlong) {
    type("one two");
    const word::BookmarkPtr place = mark("Place", 1, 3);
    place->SetStart({5});
    EXPECT_EQ(at("Place"), "5-5");
    place->SetEnd({2});
    EXPECT_EQ(at("Place"), "2-2");
    EXPECT_NE(errorOf([&] { place->SetEnd({99}); }), 0);
    EXPECT_NE(errorOf([&] { place->SetStart({-1}); }), 0);
    EXPECT_EQ(body(), "on[Place:]e two\n");
}

TEST_P(OfficeBookmarks, NamesAreThoseOfWord) {
    type("one");
    const word::BookmarksPtr bookmarks = document->Bookmarks();
    for (const std::string name : {"", "1a", "a b", "a-b", "a.b"})
        EXPECT_NE(errorOf([&] { bookmarks->Add(name, *selection->Range()); }), 0) << name;
    EXPECT_NE(errorOf([&] { bookmarks->Add(std::string(41, 'a'), *selection->Range()); }), 0);
    for (const std::string& name : {std::string("Größe"), std::string("_hidden"), std::string(40, 'a')}) {
        bookmarks->Add(name, *selection->Range());
        EXPECT_TRUE(bookmarks->Exists(name)) << name;
    }
    EXPECT_EQ(bookmarks->Count(), 2) << "hidden ones do not count";
    EXPECT_EQ(errorOf([&] { bookmarks->Item("none"); }), kMemberNotFound);
    EXPECT_EQ(errorOf([&] { bookmarks->Item(3); }), kMemberNotFound);
    EXPECT_EQ(errorOf([&] { bookmarks->Item(0); }), kMemberNotFound);
}

TEST_P(OfficeBookmarks, CountersGoOnFromTheFirstFreeOne) {
    add();
    for (const char* name : {"A_ref1", "a_REF2", "A_ref4"})
        document->Bookmarks()->Add(name, *selection->Range());
    EXPECT_EQ(document->Bookmarks()->firstFreeCounter("A_ref"), 3);
    document->Bookmarks()->Add("A_ref3", *selection->Range());
    EXPECT_EQ(document->Bookmarks()->firstFreeCounter("a_ref"), 5);
}

TEST_P(OfficeBookmarks, AreFoundWhereTheyReachOverOthers) {
    type("a\rb\rc\rd\re");
    mark("Wide", 0, 9);
    mark("A", 0, 1);
    mark("C", 4, 5);
    const auto foundAt = [&](std::int64_t place) {
        mark("zz", place, place)->Select();
        document->Bookmarks()->Item("zz")->SetEnd({0});
        return names(*selection->Bookmarks());
    };
    EXPECT_EQ(foundAt(2), "Wide");
    selection->TypeText("typed");
    EXPECT_EQ(names(*selection->Bookmarks()), "Wide");
    document->Bookmarks()->Add("Typed", *selection->Range()->Previous(word::WdUnits::wdCharacter, 1));
    EXPECT_EQ(names(*selection->Bookmarks()), "Wide Typed");
    selection->TypeText(" ");
    EXPECT_EQ(names(*selection->Bookmarks()), "Wide");
    EXPECT_EQ(foundAt(10), "Wide C");
    EXPECT_EQ(foundAt(13), "Wide");
}

TEST_P(OfficeBookmarks, MoveTheirEndsByCharacters) {
    type("one \U0001F600 three");
    const word::BookmarkPtr place = mark("Place", 4, 6);
    place->moveStart({-2});
    place->moveEnd({3});
    EXPECT_EQ(at("Place"), "2-9");
    place->moveStart({4});
    EXPECT_EQ(at("Place"), "6-9");
    place->moveEnd({-5});
    EXPECT_EQ(at("Place"), "4-4");
}

TEST_P(OfficeBookmarks, GoWithTheirText) {
    type("one two");
    const word::BookmarkPtr place = mark("Place", 4, 7);
    place->Range()->SetText("");
    EXPECT_EQ(errorOf([&] { place->Start(); }), kObjectDeleted);
    EXPECT_EQ(errorOf([&] { place->Select(); }), kObjectDeleted);
    EXPECT_EQ(document->Bookmarks()->Count(), 0);
}

TEST_P(OfficeBookmarks, StandOverCellsAndTables) {
    const std::string row = cellXml(para("a")) + cellXml(para("b"));
    open(para("x") + tableXml({row, row}) + para("y"));
    document->Bookmarks()->Add("Table", *document->Tables()->Item(1)->Range());
    document->Bookmarks()->Add("Cell", *cell(1, 2, 1)->Range());
    EXPECT_EQ(at("Table"), "2-12");
    EXPECT_EQ(bookmark("Table")->Range()->Cells()->Count(), 4);
    EXPECT_EQ(bookmark("Cell")->Range()->Text(), "a\r\a");
    goToCell(1, 1, 1);
    selection->TypeText("in");
    EXPECT_EQ(at("Table"), "2-14");
    EXPECT_EQ(names(*selection->Bookmarks()), "Table");
    goToEnd("Table");
    EXPECT_EQ(names(*selection->Bookmarks()), "Table") << "below the table";
    selection->TypeText("z");
    EXPECT_EQ(at("Table"), "2-14");
    document->SaveAs("/over.docx", word::WdSaveFormat::wdFormatXMLDocument);
    document = start(OfficeKind::Embedded)->Documents()->Open("/over.docx");
    EXPECT_EQ(at("Table"), "2-14");
    EXPECT_EQ(bookmark("Table")->Range()->Text(), "ina\r\ab\r\a\r\aa\r\ab\r\a\r\a");
}

}  // namespace
}  // namespace mergeloom
