#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// The elements of WordprocessingML (ECMA-376 Part 1, 17) that the engine acts on; every other one is Other.
enum class WordTag : std::uint8_t {
    Other,
    // blocks
    Paragraph,
    Table,
    Row,
    CellElement,
    SectionProperties,
    // containers that are walked through, of blocks or of runs
    ContentControl,
    ContentControlContent,
    CustomXml,
    SmartTag,
    Hyperlink,
    Insertion,
    Deletion,
    MoveFrom,
    MoveTo,
    Direction,
    AlternateContent,
    Choice,
    // in a paragraph
    Run,
    SimpleField,
    Math,
    BookmarkStart,
    BookmarkEnd,
    ParagraphProperties,
    // in a run
    RunProperties,
    TextElement,
    DeletedText,
    InstructionText,
    DeletedInstructionText,
    Tab,
    Break,
    SingleCharacter,
    Drawing,
    VmlPicture,
    EmbeddedObject,
    FieldCharacter,
    Ruby,
    // stories inside stories
    TextBoxContent,
};

/// How one part writes the names of WordprocessingML: which prefix its elements and its attributes carry,
/// and whether it uses the transitional or the strict namespace (ECMA-376 Part 1, 17; Part 4, 9).
class WordNames {
  public:
    /// Reads the root's namespace declarations. A part without a prefix for attributes gets one.
    explicit WordNames(pugi::xml_node root);

    [[nodiscard]] bool isStrict() const { return strict_; }
    [[nodiscard]] WordTag tagOf(pugi::xml_node node) const;

    /// "p" as this part writes it: "w:p".
    [[nodiscard]] std::string element(std::string_view localName) const {
        return join(elementPrefix_, localName);
    }
    [[nodiscard]] std::string attribute(std::string_view localName) const {
        return join(attributePrefix_, localName);
    }

    /// The value of one of the part's own attributes; an empty text when it is absent.
    [[nodiscard]] const char* value(pugi::xml_node node, std::string_view localName) const;
    [[nodiscard]] pugi::xml_node child(pugi::xml_node node, WordTag tag) const;
    /// The nearest element of that tag among the ancestors of a node.
    [[nodiscard]] pugi::xml_node ancestor(pugi::xml_node node, WordTag tag) const;

  private:
    static std::string join(const std::string& prefix, std::string_view localName);

    std::string elementPrefix_;    // with the colon, or empty
    std::string attributePrefix_;  // with the colon
    bool strict_ = false;
};

}  // namespace mergeloom::opc
