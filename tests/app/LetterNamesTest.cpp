#include "app/LetterNames.h"
#include "app/SeenControls.h"
#include "base/AutomationError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;

RecordControl control(const std::string& name, const std::string& value) {
    return {.name = name, .displayValue = value, .records = {}};
}

template <typename Body>
std::string refusalOf(const Body& body) {
    try {
        body();
    } catch (const AutomationError& error) {
        return error.description();
    }
    return {};
}

TEST(LetterNames, TakeTheValuesOfRecords) {
    const Record record{
        {control("No", "7"), control("Name", "Åsa"), {.name = "Note", .plainText = "plain", .records = {}}}};
    EXPECT_FALSE(LetterNames("out/letter.docx").dependOnRecord());
    const LetterNames names("out/{No}/{Name} {Note}-{No}.docx");
    EXPECT_TRUE(names.dependOnRecord());
    EXPECT_EQ(names.controls(), (std::vector<std::string>{"No", "Name", "Note", "No"}));
    EXPECT_EQ(names.pathFor(record, 1), "out/7/Åsa plain-7.docx");
}

TEST(LetterNames, RefuseWhatNoFileCanBeNamed) {
    struct Case {
        std::string pattern;
        std::string value;
        std::string sentence;
    };
    const std::vector<Case> cases{
        {"{A}.docx", "", "{A} is empty in record 3"},      {"{B}.docx", "x", "{B} is empty in record 3"},
        {"{A}.docx", "a/b", "\"a/b\" of {A} in record 3"}, {"{A}.docx", "..", ""},
        {"x/{A}.docx", "a:b", "\"a:b\" of {A}"},           {"x/{A}.docx", "a\nb", "cannot be a part"},
        {"{A}.docx", "a\u009Bb", "cannot be a part"},      {"{A}.docx", "a\u202Eb", "cannot be a part"},
        {"{A}.docx", "NUL", "\"NUL.docx\" of record 3"},   {"{A}.docx", std::string(300, 'a'), "record 3"},
    };
    for (const Case& c : cases) {
        const Record record{{control("A", c.value)}};
        const std::string refusal =
            refusalOf([&] { static_cast<void>(LetterNames(c.pattern).pathFor(record, 3)); });
        EXPECT_EQ(refusal.empty(), c.sentence.empty()) << c.value << refusal;
        EXPECT_THAT(refusal, HasSubstr(c.sentence));
    }
    for (const char* pattern : {"{A.docx", "A}.docx", "}A{.docx"})
        EXPECT_THAT(refusalOf([&] { LetterNames names(pattern); }), HasSubstr("brace")) << pattern;
    TakenNames taken;
    taken.take("a.docx", 1);
    taken.take("b.docx", 2);
    EXPECT_THAT(refusalOf([&] { taken.take("A.docx", 3); }), HasSubstr("two records, 1 and 3"));
}

TEST(PathFingerprints, LeadToRecordsWithTheSamePath) {
    PathFingerprints fingerprints;
    const std::vector<std::string> paths{"c.docx", "A.docx", "b.docx", "C.DOCX",
                                         "d.docx", "a.docx", "c.docx"};
    for (std::size_t i = 0; i < paths.size(); ++i)
        fingerprints.note(paths[i], i + 1);
    EXPECT_EQ(fingerprints.suspects(), (std::vector<std::size_t>{1, 2, 4, 6, 7}));
}

TEST(SeenControls, ListEachOnce) {
    SeenControls seen;
    seen.note(
        {{control("A", "1"), {.name = "S", .records = {{{control("X", "1")}}, {{control("Y", "1")}}}}}});
    seen.note({{control("B", "1"), control("A", "2")}});
    EXPECT_EQ(seen.values(), (std::vector<letters::ControlPath>{{"A"}, {"S", "X"}, {"S", "Y"}, {"B"}}));
    EXPECT_TRUE(seen.has({"S", "Y"}));
    EXPECT_FALSE(seen.has({"S", "A"}));
    EXPECT_FALSE(seen.has({"A", "X"}));
}

}  // namespace
}  // namespace mergeloom
