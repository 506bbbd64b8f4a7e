#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// The elements of WordprocessingML (ECMA-376 Part 1, 17) that the engine handles; all others are Other.
enum class WordTag : std::uint8_t {
    Other,
    // blocks
    Paragraph,
    Table,
    Row,
    CellElement,
    SectionProperties,
    // containers of blocks or of runs
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

/// The names of WordprocessingML in one part: the prefixes of its elements and attributes, and the
/// transitional or the strict namespace (ECMA-376 Part 1, 17; Part 4, 9).
class WordNames {
  public:
    /// Reads the root's namespace declarations; declares a prefix for attributes if there is none.
    explicit WordNames(pugi::xml_node root);

    [[nodiscard]] bool isStrict() const { return strict_; }
    [[nodiscard]] WordTag tagOf(pugi::xml_node node) const;

    /// Returns a name with this part's prefix: "w:p" for "p".
    [[nodiscard]] std::string element(std::string_view localName) const {
        return join(elementPrefix_, localName);
    }
    [[nodiscard]] std::string attribute(std::string_view localName) const {
        return join(attributePrefix_, localName);
    }

    /// Returns the value of an attribute of WordprocessingML; empty if it is absent.
    [[nodiscard]] const char* value(pugi::xml_node node, std::string_view localName) const;
    [[nodiscard]] pugi::xml_node child(pugi::xml_node node, WordTag tag) const;
    /// Returns the nearest ancestor of a node with that tag.
    [[nodiscard]] pugi::xml_node ancestor(pugi::xml_node node, WordTag tag) const;

  private:
    /// Returns true for the properties of paragraphs and runs, which are the first child of their element: a
    /// long paragraph without properties is not searched. Other elements, such as styles, may have them at
    /// any position.
    [[nodiscard]] bool isOnlyFirst(WordTag properties, pugi::xml_node owner) const;
    static std::string join(const std::string& prefix, std::string_view localName);

    std::string elementPrefix_;    // with the colon, or empty
    std::string attributePrefix_;  // with the colon
    bool strict_ = false;
};

}  // namespace mergeloom::opc
