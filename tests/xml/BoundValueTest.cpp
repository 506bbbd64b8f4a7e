#include "RecordingErrorHandler.h"
#include "xml/CXML2TreeView.h"
#include "xml/StructureDocument.h"
#include "xml/modMSXMLHelper.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

// The tree looks up bound values in an index, and these tests compare its results with the searches that
// define them.

namespace mergeloom {
namespace {

bool isControl(XmlNode node) {
    return node && structureElementOf(node.nodeName()) == StructureElement::Control;
}

bool searchedBoundValue(XmlNode documentElement, XmlNode control, XmlNode parent) {
    RecordingErrorHandler errors;
    const std::string name = GetAttributeValue(control, "Name");
    const std::string outerName = isControl(parent) ? GetAttributeValue(parent, "Name") : "";
    XmlNode place = SearchNodeNotCaseSensitive(errors, documentElement, "Data");
    if (place && !outerName.empty()) {
        place = SearchNodeNotCaseSensitive(errors, place, "Control", "Name", outerName);
    }
    const XmlNode found = SearchNodeNotCaseSensitive(errors, place, "Control", "Name", name);
    const bool bound = static_cast<bool>(SearchNodeNotCaseSensitive(errors, found, "BoundValue"));
    EXPECT_TRUE(errors.reports.empty());
    return bound;
}

void collectElements(XmlNode node, std::vector<XmlNode>& elements) {
    elements.push_back(node);
    for (XmlNode child = node.firstChild(); child; child = child.nextSibling()) {
        collectElements(child, elements);
    }
}

/// Compares the results for every control of a document with every element as its parent. Returns the result
/// for the control with the attribute ask below its own parent.
bool answerAfterComparing(const std::string& xml) {
    StructureDocument document;
    EXPECT_TRUE(document.loadXML(xml)) << document.parseError().reason << "\n" << xml;
    std::vector<XmlNode> parents = {XmlNode()};
    collectElements(document.documentElement(), parents);
    TreeView tree;
    RecordingErrorHandler errors;
    CXML2TreeView view(tree, document, errors);
    bool asked = false;
    for (const XmlNode control : parents) {
        if (!isControl(control)) continue;
        for (const XmlNode parent : parents) {
            EXPECT_EQ(view.ContolHasBoundValue(control, parent),
                      searchedBoundValue(document.documentElement(), control, parent))
                << GetAttributeValue(control, "Name") << " below " << GetAttributeValue(parent, "Name")
                << " in\n"
                << xml;
        }
        if (control.namedAttribute("ask")) asked = view.ContolHasBoundValue(control, control.parentNode());
    }
    EXPECT_TRUE(errors.reports.empty());
    return asked;
}

TEST(BoundValue, AnswersAsTheSearchesDo) {
    const std::string bound = "<BoundValue/></Control>";
    const std::string asked = "<r><Control Name='a' ask=''/>";
    struct {
        const char* what;
        std::string xml;
        bool answer;  ///< for the control with the attribute ask and its parent
    } const cases[] = {
        {"no data", "<r><Control Name='a' ask=''>" + bound + "</r>", false},
        {"a control of the data", asked + "<Data><x><Control Name='a'>" + bound + "</x></Data></r>", true},
        {"the document element is no data", "<Data><Control Name='a' ask=''>" + bound + "</Data>", false},
        {"the first data counts", asked + "<x><DATA/></x><Data><Control Name='a'>" + bound + "</Data></r>",
         false},
        {"the first control counts",
         asked + "<Data><Control Name='a'/><Control Name='a'>" + bound + "</Data></r>", false},
        {"values compare with case", asked + "<Data><Control Name='A'>" + bound + "</Data></r>", false},
        {"names compare without case and prefix",
         "<p:r xmlns:p='u'><Control Name='a' ask=''/><p:dATA><p:CONTROL x='' "
         "p:NAME='a'><y><p:boundvalue/></y>"
         "</p:CONTROL></p:dATA></p:r>",
         true},
        {"a control without a name stands for the first with one",
         "<r><Control ask=''/><Data><Control/><Control Name='a'>" + bound + "</Data></r>", true},
        {"an empty name in the data is a name",
         "<r><Control ask=''/><Data><Control Name=''/><Control Name='a'>" + bound + "</Data></r>", false},
        {"a bound value of an inner control counts for the outer one",
         asked + "<Data><Control Name='a'><Control Name='b'>" + bound + "</Control></Data></r>", true},
        {"an outer name that the data lacks",
         "<r><Control Name='s'><Control Name='a' ask=''/></Control><Data><Control Name='a'>" + bound +
             "</Data></r>",
         false},
        {"an outer name",
         "<r><Control Name='s'><Control Name='a' ask=''/></Control><Data><Control Name='a'/>"
         "<Control Name='s'><Control Name='a'>" +
             bound + "</Control></Data></r>",
         true},
        {"only below the first outer control",
         "<r><Control Name='s'><Control Name='a' ask=''/></Control><Data><Control Name='s'/>"
         "<Control Name='s'><Control Name='a'>" +
             bound + "</Control></Data></r>",
         false},
        {"a control is not below itself",
         "<r><Control Name='a'><Control Name='a' ask=''/></Control><Data><Control Name='a'>" + bound +
             "</Data></r>",
         false},
        {"both kinds of quote",
         "<r><Control Name=\"a'&quot;b\" ask=''/><Data><Control Name=\"a'b\">" + bound + "</Data></r>", true},
        {"both kinds of quote in the data as well",
         "<r><Control Name=\"a'&quot;b\" ask=''/><Data><Control Name=\"a'&quot;b\">" + bound + "</Data></r>",
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(answerAfterComparing(c.xml), c.answer);
    }
}

class RandomDocument {
  public:
    explicit RandomDocument(unsigned seed) : random_(seed) {}

    std::string xml() {
        std::string text = "<r xmlns:p='u'>";
        for (int i = 0; i < 3; ++i)
            addElement(text, 0);
        return text + "</r>";
    }

  private:
    template <std::size_t kCount>
    const char* any(const std::array<const char*, kCount>& words) {
        return words[random_() % kCount];
    }

    void addElement(std::string& text, int depth) {
        static constexpr std::array kElements = {"Control",    "control",     "p:CONTROL", "Control",
                                                 "Control",    "Data",        "p:data",    "Record",
                                                 "BoundValue", "p:boundVALUE"};
        static constexpr std::array kAttributes = {"Name", "Name", "NAME", "p:name", "Caption"};
        static constexpr std::array kValues = {"a",   "b", "A",      "a'b", "a&quot;b", "a'&quot;b",
                                               "'ab", "",  "&quot;", "'",   "'&quot;"};
        const std::string element = any(kElements);
        text += "<" + element;
        const auto first = random_() % kAttributes.size();
        for (std::size_t i = first; i < first + random_() % 3; ++i) {
            const std::string attribute = kAttributes[i % kAttributes.size()];
            if (text.find(attribute + "=", text.rfind('<')) != std::string::npos) continue;
            text += " " + attribute + "=\"" + any(kValues) + "\"";
        }
        text += ">";
        const auto children = depth < 5 ? random_() % 4 : 0;
        for (std::size_t i = 0; i < children; ++i)
            addElement(text, depth + 1);
        text += "</" + element + ">";
    }

    std::mt19937 random_;
};

TEST(BoundValue, AnswersAsTheSearchesDoInRandomDocuments) {
    for (unsigned seed = 1; seed <= 80 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        const std::string xml = RandomDocument(seed).xml();
        if (xml.size() < 2500) answerAfterComparing(xml);
    }
}

}  // namespace
}  // namespace mergeloom
