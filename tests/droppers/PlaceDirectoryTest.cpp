#include "DropTest.h"
#include "base/Text.h"
#include "droppers/PlaceDirectory.h"
#include "office/model/word/Bookmarks.h"

#include <string>
#include <vector>

namespace mergeloom {
namespace {

const std::string kLongName = "AVeryLongNameOfAControlThatHas45CharactersIn1";

class PlaceDirectory : public DropTest {
  protected:
    letters::PlaceSources sourcesOf(const std::vector<std::string>& names) {
        return placeSources(
            xmlNodes, node("1k"), names, [this](const std::string& image) { return pictures[image]; },
            scheme);
    }
    static std::string shown(const letters::ControlPath& path) {
        std::string text;
        for (const std::string& name : path)
            text += "/" + name;
        return text;
    }
    std::string sourceOf(const std::string& bookmark) {
        const letters::PlaceSources sources = sourcesOf({bookmark});
        const auto place = sources.places.find(foldCase(bookmark));
        if (place != sources.places.end()) {
            const bool isBound = place->second.value == letters::ValueKind::Bound;
            return shown(place->second.path) + (isBound ? " bound" : "") + place->second.image;
        }
        const auto table = sources.tables.find(foldCase(bookmark));
        return table == sources.tables.end() ? "" : "rows of " + shown(table->second);
    }
    PlaceScheme scheme = PlaceScheme::Bookmarks;

    void loadOrders() {
        pictures["p.png"] = ":p.png";
        load("<db><Form Name='My Orders'><Control Name='2nd. Name'/><Control Name='" + kLongName +
             "'/><Control Name='Logo' Image='p.png'/>"
             "<Control Name='Tabs' ControlType='TabControl'><Page><Control Name='Paged'/></Page></Control>"
             "<Control Name='Order Lines' ControlType='Subform'><Form Name='Sub' HasRecordset='1'>"
             "<Control Name='X'/><Control Name='Deep' ControlType='Subform'><Form Name='D' HasRecordset='0'>"
             "<Control Name='Y'/></Form></Control></Form></Control></Form></db>");
    }
};

TEST_F(PlaceDirectory, NamesOfCellsAreComputedFromControls) {
    loadOrders();
    scheme = PlaceScheme::RangeNames;
    struct Case {
        std::string name;
        std::string source;
    };
    const std::vector<Case> cases{
        {"ammx2ndName", "/2nd. Name"},
        {"AMMX2NDNAME_BV", "/2nd. Name bound"},
        {"ammx2ndName_ref12", "/2nd. Name"},
        {"ammx2ndName_bv_ref1", "/2nd. Name bound"},
        {"ammLogo", "/Logo:p.png"},
        {"amm" + kLongName + "_bv_ref123", "/" + kLongName + " bound"},
        {"ammOrderLinesX", "/Order Lines/X"},
        {"ammOrderLines", "rows of /Order Lines"},
        {"ammOrderLines_ref1", "rows of /Order Lines"},
        {"ammMyOrdersT", "rows of "},
        {"Paged", ""},
        {"OrderLines", ""},
    };
    for (const Case& each : cases)
        EXPECT_EQ(sourceOf(each.name), each.source) << each.name;
}

TEST_F(PlaceDirectory, NamesAreComputedFromControls) {
    loadOrders();
    struct Case {
        std::string bookmark;
        std::string source;
    };
    const std::vector<Case> cases{
        {"x2ndName", "/2nd. Name"},
        {"X2NDNAME_BV", "/2nd. Name bound"},
        {"x2ndName_ref12", "/2nd. Name"},
        {"x2ndName_bv_ref1", "/2nd. Name bound"},
        {"x2ndName_refs", ""},
        {"Paged", "/Paged"},
        {"Logo", "/Logo:p.png"},
        {kLongName.substr(5), "/" + kLongName},
        {kLongName.substr(8) + "_bv", "/" + kLongName + " bound"},
        {kLongName.substr(10) + "_ref7", "/" + kLongName},
        {kLongName.substr(12) + "_ref123", "/" + kLongName},
        {"OrderLinesX", "/Order Lines/X"},
        {"DeepY", "/Order Lines/Deep/Y"},
        {"OrderLines", "rows of /Order Lines"},
        {"OrderLines_ref1", "rows of /Order Lines"},
        {"MyOrdersT", "rows of "},
        {"MyOrders", ""},
        {"Tabs", ""},
        {"OrderLinesY", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(sourceOf(c.bookmark), c.source) << c.bookmark;
}

TEST_F(PlaceDirectory, TwoControlsOfOneNameAreTold) {
    load(
        "<db><Form Name='F'><Control Name='A B'/><Control Name='AB'/><Control Name='C_bv'/><Control "
        "Name='C'/>"
        "</Form></db>");
    const letters::PlaceSources sources = sourcesOf({"AB", "C_bv", "C"});
    EXPECT_EQ(sources.ambiguous, (std::vector<std::string>{"AB", "C_bv"}));
    EXPECT_EQ(shown(sources.places.at("ab").path), "/A B");
    EXPECT_EQ(shown(sources.places.at("c_bv").path), "/C_bv");
}

/// The directory must find all places that the droppers make of an object.
TEST_F(PlaceDirectory, EveryDroppedPlaceIsFound) {
    loadOrders();
    pictures.clear();
    open();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(drop(node("1k"), DocumentType::Form));
    std::vector<std::string> names;
    for (int number = 1; number <= document->Bookmarks()->Count(); ++number)
        names.push_back(document->Bookmarks()->Item(number)->Name());
    ASSERT_GE(names.size(), 12U);
    for (const std::string& name : names)
        EXPECT_NE(sourceOf(name), "") << name;
}

TEST_F(PlaceDirectory, NodesAreFoundByTheirPlaces) {
    loadOrders();
    const auto textsOf = [&](PlaceScheme placeScheme, const std::string& place) {
        NodesByPlace nodes;
        addNodesByPlace(xmlNodes, node("1k"), placeScheme, nodes);
        std::string texts;
        for (const int number : nodesOfPlace(nodes, place))
            texts += "/" + tree.Item(number)->Text();
        return texts;
    };
    struct Case {
        PlaceScheme scheme;
        std::string place;
        std::string nodes;
    };
    const std::vector<Case> cases{
        {PlaceScheme::Bookmarks, "X2NDNAME", "/2nd. Name/Value"},
        {PlaceScheme::Bookmarks, "x2ndName_ref12", "/2nd. Name/Value"},
        {PlaceScheme::Bookmarks, "Logo", "/Logo/Value"},
        {PlaceScheme::Bookmarks, "OrderLinesX", "/X/Value"},
        {PlaceScheme::Bookmarks, "OrderLines_ref1", "/Order Lines"},
        {PlaceScheme::Bookmarks, "MyOrdersT", "/Form \"My Orders\""},
        {PlaceScheme::Bookmarks, "x2ndName_refs", ""},
        {PlaceScheme::Bookmarks, "ammPaged", ""},
        {PlaceScheme::RangeNames, "ammPaged", "/Paged/Value"},
        {PlaceScheme::RangeNames, "ammMyOrdersT", "/Form \"My Orders\""},
    };
    for (const Case& one : cases)
        EXPECT_EQ(textsOf(one.scheme, one.place), one.nodes) << one.place;
}

}  // namespace
}  // namespace mergeloom
