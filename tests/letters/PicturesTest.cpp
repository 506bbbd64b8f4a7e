#include "doubles/TurnedPicture.h"
#include "letters/LetterTest.h"

namespace mergeloom {
namespace {

class LetterPictures : public LetterTest {
  protected:
    /// Returns the XML between the start and the end of a drawing's attributes, such as "cx="1" cy="2"".
    static std::string attributesOf(const std::string& xml, const std::string& element) {
        const std::size_t start = xml.find("<" + element);
        if (start == std::string::npos) return "missing";
        const std::size_t first = start + element.size() + 1;
        return xml.substr(first, xml.find_first_of("/>", first) - first);
    }
};

/// The frame of a rotated picture is also rotated, so the shown width is unchanged.
TEST_F(LetterPictures, TurnAsTheirFilesSay) {
    takes("A", {{"A"}});
    struct Case {
        int orientation;
        std::string transform;
        std::string size;
    };
    const std::string lying = R"( cx="190500" cy="95250")";
    for (const Case& c : std::vector<Case>{{1, "", lying},
                                           {2, R"( flipH="1")", lying},
                                           {3, R"( rot="10800000")", lying},
                                           {5, R"( rot="16200000" flipH="1")", lying},
                                           {6, R"( rot="5400000")", lying},
                                           {8, R"( rot="16200000")", lying}}) {
        files.files["/a.jpg"] = turnedPicture(c.orientation);
        const std::string placed = letterOf(*compiled(wordFile(paragraph(place("A")))),
                                            {{{{.name = "A", .image = "/a.jpg", .records = {}}}}});
        const std::string xml = bodyXml(placed);
        EXPECT_EQ(attributesOf(xml, "a:xfrm"), c.transform) << c.orientation << xml;
        EXPECT_EQ(attributesOf(xml, "wp:extent"), c.size) << c.orientation;
    }
}

}  // namespace
}  // namespace mergeloom
