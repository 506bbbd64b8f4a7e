#include "DropTest.h"
#include "droppers/modBookmarkAdd.h"
#include "office/model/word/Table.h"

#include <vector>

namespace mergeloom {
namespace {

constexpr auto kStart = word::WdCollapseDirection::wdCollapseStart;
constexpr auto kEnd = word::WdCollapseDirection::wdCollapseEnd;

class BookmarkAdd : public DropTest {
  protected:
    word::BookmarkPtr add(std::string name, const PlaceContent& content = {}) {
        const word::RangePtr range = selection()->Range();
        return rWordBookmarkAdd(reports, *document, *range, name, content);
    }

    DropReports reports{errors, messages};
};

TEST_F(BookmarkAdd, NamesAndTextsOfPlaces) {
    struct Case {
        std::string name;
        PlaceContent content;
        std::string expectedBody;
        std::string expectedName;  ///< what the caller's name receives
    };
    const std::vector<Case> cases{
        {"Customer", {}, "[Customer:Customer]\n", "Customer"},
        {"Order-Date", {}, "[OrderDate:Order-Date]\n", "Order-Date"},
        {"City", {.vfBoundValueUse = true}, "[City_bv:City]\n", "City_bv"},
        {"City", {.vfBoundValueUse = true, .vstrPrefix = "Ship"}, "[ShipCity_bv:City]\n", "ShipCity_bv"},
        {"City", {.vstrText = "Berlin"}, "[City:Berlin]\n", "City"},
        {"Break", {.vstrText = "\r\n"}, "[Break:\n]\n", "Break"},
    };
    for (const Case& c : cases) {
        open();
        std::string name = c.name;
        const word::RangePtr range = selection()->Range();
        ASSERT_TRUE(rWordBookmarkAdd(reports, *document, *range, name, c.content)) << c.name;
        EXPECT_EQ(body(), c.expectedBody);
        EXPECT_EQ(name, c.expectedName);
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(BookmarkAdd, FurtherPlacesCount) {
    open();
    for (const bool bound : {false, false, true, false, true}) {
        ASSERT_TRUE(add("Name", {.vfBoundValueUse = bound, .vstrText = "x"}));
        selection()->TypeText(" ");
    }
    for (const char* name : {"Name", "Name_ref1", "Name_ref2", "Name_bv", "Name_bv_ref1"}) {
        EXPECT_TRUE(document->Bookmarks()->Exists(name)) << name;
    }
    EXPECT_EQ(document->Bookmarks()->Count(), 5);
}

TEST_F(BookmarkAdd, TheCounterPushesOutTheBeginningOfALongName) {
    open();
    const std::string longName = "abcde" + std::string(35, 'z');
    ASSERT_TRUE(add(longName));
    selection()->TypeText(" ");
    EXPECT_EQ(add(longName)->Name(), std::string(35, 'z') + "_ref1");
}

TEST_F(BookmarkAdd, NoPlaceTakesTheNameOfAnother) {
    const std::string longName = std::string(5, 'a') + std::string(40, 'z');
    struct Case {
        std::vector<std::string> names;
        std::vector<std::string> expectedNames;
    };
    const std::vector<Case> cases{
        {{"Order-Date", "Order-Date", "Order/Date", "Order%Date"},
         {"OrderDate", "OrderDate_ref1", "OrderDate_ref2", "OrderDate_ref3"}},
        {{"Order-Date", "OrderDate", "ORDERDATE"}, {"OrderDate", "OrderDate_ref1", "ORDERDATE_ref2"}},
        {{longName, longName.substr(2), longName},
         {std::string(40, 'z'), std::string(35, 'z') + "_ref1", std::string(35, 'z') + "_ref2"}},
    };
    for (const Case& c : cases) {
        open();
        for (std::size_t i = 0; i < c.names.size(); ++i) {
            EXPECT_EQ(add(c.names[i])->Name(), c.expectedNames[i]);
            selection()->TypeText(" ");
        }
        EXPECT_EQ(document->Bookmarks()->Count(), std::ssize(c.names));
    }
}

/// A longer counter replaces more characters of the name, which leads to new names.
TEST_F(BookmarkAdd, ManyPlacesOfALongName) {
    constexpr int kPlaces = 112;
    for (const std::size_t length : {33U, 34U, 40U, 60U}) {
        open();
        for (int i = 0; i < kPlaces; ++i) {
            ASSERT_TRUE(add(std::string(length, 'z'), {.vstrText = "x"}));
            selection()->TypeText(" ");
        }
        EXPECT_EQ(document->Bookmarks()->Count(), kPlaces) << length;
        const std::string last = std::string(std::min<std::size_t>(length, 33), 'z') + "_ref111";
        EXPECT_TRUE(document->Bookmarks()->Exists(last)) << length;
        EXPECT_FALSE(document->Bookmarks()->Exists(last.substr(1))) << length;
    }
}

TEST_F(BookmarkAdd, SelectedTextIsThePlacesText) {
    open(
        "<w:p><w:r><w:t xml:space='preserve'>Dear "
        "</w:t></w:r><w:r><w:rPr><w:b/></w:rPr><w:t>you</w:t></w:r></w:p>");
    document->Bookmarks()->Add("All", *selection()->Range());
    bookmark("All")->SetEnd(CharacterPosition{8});
    bookmark("All")->SetStart(CharacterPosition{5});
    const word::RangePtr you = bookmark("All")->Range();
    you->SetText("you");  // the bookmark goes with its text
    you->Select();
    ASSERT_TRUE(add("Person", {.vstrText = "unused"}));
    EXPECT_EQ(body(), "Dear [Person:you]\n");
}

TEST_F(BookmarkAdd, GuardsKeepTouchingPlacesApart) {
    struct Case {
        const char* what;
        word::WdCollapseDirection side;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"where another place ends", kEnd, "[Other:text]^[New:New]\n"},
        {"where another place starts", kStart, "[New:New]^[Other:text]\n"},
    };
    for (const Case& c : cases) {
        open();
        placeAtCaret("Other", "text");
        goTo("Other", c.side);
        ASSERT_TRUE(add("New")) << c.what;
        EXPECT_EQ(body(), c.expected) << c.what;
    }
}

TEST_F(BookmarkAdd, BetweenTwoPlacesBothSidesAreGuarded) {
    open();
    placeAtCaret("One", "1");
    placeAtCaret("Two", "2");
    goTo("Two", kStart);
    ASSERT_TRUE(add("New"));
    EXPECT_EQ(body(), "[One:1]^[New:New]^[Two:2]\n");
}

TEST_F(BookmarkAdd, APlaceWhoseTextIsReplacedGoes) {
    open();
    placeAtCaret("Old", "text");
    bookmark("Old")->Select();
    ASSERT_TRUE(add("New"));
    EXPECT_EQ(body(), "[New:text]^\n");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(BookmarkAdd, RefusesADropOnAField) {
    struct Case {
        std::string name, text;
        bool refused;
    };
    const std::vector<Case> cases{
        {"Customer", "Customer", true},
        {"Customer", "CUSTOMER", true},
        {"Customer", "Customers", false},
    };
    for (const Case& c : cases) {
        open();
        placeAtCaret(c.name, c.text);
        goTo(c.name, kEnd);
        messages.messages.clear();
        const std::string before = body();
        EXPECT_EQ(add("New") == nullptr, c.refused) << c.text;
        EXPECT_EQ(body() == before, c.refused) << c.text;
        EXPECT_EQ(messages.texts(), c.refused ? "Do not drop fields on top of existing fields.\n" : "");
    }
    EXPECT_EQ(messages.messages.size(), 0U);
    EXPECT_TRUE(errors.reports.empty());
    EXPECT_FALSE(reports.failed());
}

/// A field that starts at the place of the drop is moved after the new place.
TEST_F(BookmarkAdd, PassesAFieldThatStartsThere) {
    open();
    placeAtCaret("Customer", "Customer");
    goTo("Customer", kStart);
    ASSERT_TRUE(add("New"));
    EXPECT_EQ(body(), "[New:New]^[Customer:Customer]\n");
}

/// If a place has several cells, pictures and fields in them have no effect.
TEST_F(BookmarkAdd, SeveralCellsKeepTheirText) {
    const std::string cell = "<w:tc><w:tcPr/><w:p><w:r><w:t>";
    open("<w:tbl><w:tblPr/><w:tblGrid><w:gridCol/><w:gridCol/></w:tblGrid><w:tr>" + cell +
         "a</w:t></w:r></w:p></w:tc>" + cell + "field</w:t></w:r></w:p></w:tc></w:tr></w:tbl><w:p/>");
    const word::BookmarksPtr bookmarks = document->Bookmarks();
    const word::BookmarkPtr field = bookmarks->Add("field", *selection()->Range());
    field->SetEnd(CharacterPosition{7});
    field->SetStart(CharacterPosition{2});
    ASSERT_EQ(field->Range()->Text(), "field");
    const word::BookmarkPtr cells = bookmarks->Add("Cells", *selection()->Range());
    cells->SetEnd(CharacterPosition{8});
    cells->Select();
    ASSERT_EQ(selection()->Range()->Cells()->Count(), 2);

    const word::BookmarkPtr added = add("Both", {.vstrPictureFile = "/none.png"});
    ASSERT_TRUE(added) << messages.texts();
    EXPECT_EQ(added->Range()->Cells()->Count(), 2);
    EXPECT_EQ(added->Range()->Text(), cells->Range()->Text());
    EXPECT_EQ(messages.texts(), "");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(BookmarkAdd, AnErrorIsReportedWithTheName) {
    open();
    EXPECT_FALSE(add("?!"));
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].comment, "Bookmark Name = ''");
    EXPECT_EQ(errors.reports[0].module, "modBookmarkAdd");
    EXPECT_EQ(errors.reports[0].procedure, "rWordBookmarkAdd");
    EXPECT_TRUE(reports.failed());
}

}  // namespace
}  // namespace mergeloom
