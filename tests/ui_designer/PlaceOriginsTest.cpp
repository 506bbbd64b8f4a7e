#include "ui/designer/PlaceOrigins.h"
#include "ui_designer/DropScene.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

/// Two objects with the field City, of which one has the field Date, too.
class PlaceOriginsTest : public testing::Test {
  protected:
    PlaceOriginsTest()
        : structure_(structureOf("<db><Form Name='Orders'><Control Name='City'/><Control Name='Date'/></Form>"
                                 "<Table Name='Cities'><Control Name='City'/></Table></db>")) {
        for (const TreeNode* const object : structure_->objects)
            addNodesByPlace(structure_->xmlNodes, *object, PlaceScheme::Bookmarks, structure_->nodesByPlace);
        origins_.setStructure(structure_);
    }

    [[nodiscard]] const TreeNode& object(std::size_t index) const { return *structure_->objects.at(index); }
    /// Returns the texts of the place's node and of those above it.
    [[nodiscard]] std::string sourceOf(const std::string& place) const {
        std::string source;
        for (const TreeNode* node = origins_.nodeOf(place); node != nullptr; node = node->Parent())
            source.insert(0, "/" + node->Text());
        return source;
    }

    std::shared_ptr<LoadedStructure> structure_;
    PlaceOrigins origins_;
};

constexpr const char* kCityOfOrders = "/Form \"Orders\"/City/Value";
constexpr const char* kCityOfCities = "/Table \"Cities\"/City/Value";

TEST_F(PlaceOriginsTest, AreUnknownWhereSeveralObjectsHaveAllPlaces) {
    origins_.setPlaces({"City", "Own"});
    EXPECT_EQ(sourceOf("City"), "");
    EXPECT_EQ(sourceOf("Own"), "");
    EXPECT_EQ(origins_.candidates("City").size(), 2U);
}

TEST_F(PlaceOriginsTest, AreOfTheOnlyObjectThatHasAllPlaces) {
    origins_.setPlaces({"City", "City_ref1", "Date", "Own"});
    EXPECT_EQ(sourceOf("City"), kCityOfOrders);
    EXPECT_EQ(sourceOf("City_ref1"), kCityOfOrders);
    EXPECT_EQ(sourceOf("Date"), "/Form \"Orders\"/Date/Value");
}

TEST_F(PlaceOriginsTest, AreTheNodesThatWereDropped) {
    const TreeNode& city = *object(1).Child();
    const TreeNode* const drops[] = {&object(1), &city, city.Child()};
    for (const TreeNode* const drop : drops) {
        origins_.setPlaces({});
        origins_.noteDrop(*drop);
        origins_.setPlaces({"City"});
        EXPECT_EQ(sourceOf("City"), kCityOfCities) << drop->Text();
    }
    // A further place of the name may be made from another object; the first one keeps its node.
    origins_.noteDrop(object(0));
    origins_.setPlaces({"City", "City_ref1", "Date"});
    EXPECT_EQ(sourceOf("City"), kCityOfCities);
    EXPECT_EQ(sourceOf("City_ref1"), kCityOfOrders);
}

TEST_F(PlaceOriginsTest, AreUnknownAfterSeveralDropsThatCanHaveMadeThem) {
    origins_.noteDrop(object(0));
    origins_.noteDrop(object(1));
    origins_.setPlaces({"City"});
    EXPECT_EQ(sourceOf("City"), "");
}

TEST_F(PlaceOriginsTest, OfDropsAreForgottenWithTheDocumentAndTheStructure) {
    const auto dropAnew = [&] {
        origins_.setPlaces({});
        origins_.noteDrop(object(1));
        origins_.setPlaces({"City"});
        ASSERT_EQ(sourceOf("City"), kCityOfCities);
    };
    dropAnew();
    origins_.noteNewDocument();  // it was saved under another name
    origins_.setPlaces({"City"});
    EXPECT_EQ(sourceOf("City"), kCityOfCities);
    origins_.noteNewDocument();
    origins_.setPlaces({"City", "Own"});
    EXPECT_EQ(sourceOf("City"), "");
    dropAnew();
    origins_.setStructure(nullptr);
    EXPECT_EQ(sourceOf("City"), "");
    origins_.setStructure(structure_);
    EXPECT_EQ(sourceOf("City"), "");
}

}  // namespace
}  // namespace mergeloom
