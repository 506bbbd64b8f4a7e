#pragma once

#include "office/libreoffice/word/MarkTable.h"
#include "office/libreoffice/word/WriterStory.h"
#include "office/opc/XmlPart.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// What is done about an element in a story that holds a story of its own: a note or a text box.
using OnStory = std::function<void(const pugi::xml_node&)>;

/// Reads a story as Writer stores it into its map: each table, bookmark and object at its position.
class StoryReader {
  public:
    StoryReader(WriterStory& story, MarkTable& marks, OnStory onStory)
        : story_(story), marks_(marks), onStory_(std::move(onStory)) {}

    /// The root is the element that holds the story's paragraphs.
    void read(const pugi::xml_node& root);

  private:
    void readBlocks(const pugi::xml_node& parent);
    void readBlock(const pugi::xml_node& block);
    void readTable(const pugi::xml_node& element);
    [[nodiscard]] CharacterCount coveredLength(const TextKey& key) const;
    CharacterCount readCell(const pugi::xml_node& element);
    void readInline(const pugi::xml_node& parent);
    void readElement(const pugi::xml_node& element, std::string_view name);
    bool readMark(const pugi::xml_node& element, std::string_view name);
    bool readFieldMark(const pugi::xml_node& element, std::string_view name);
    void readDrawing(const pugi::xml_node& element);
    void readText(std::string_view text);
    void addObject(TextObject object, CharacterPosition start);
    void addMark(const std::string& name, Stretch place);
    void widenOverTables();
    void skip(std::int64_t count) { at_ = at_ + CharacterCount{count}; }

    WriterStory& story_;
    MarkTable& marks_;
    OnStory onStory_;
    CharacterPosition at_;
    bool endsWithParagraph_ = false;
    std::map<std::string, CharacterPosition> openMarks_;
    std::vector<std::pair<TextObject, CharacterPosition>> openFields_;
};

}  // namespace mergeloom::libreoffice
