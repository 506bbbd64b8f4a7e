#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace mergeloom::libreoffice {

struct StoredContent;

/// The texts and bookmarks of a document, comparable between its formats: without white space and without
/// characters that a format stores as elements.
struct ContentDigest {
    std::string text;                           ///< of the body
    std::map<std::string, std::string> places;  ///< the text of each bookmark, in whatever story
};

/// Returns the texts and bookmarks of a document as Writer stores it (OpenDocument 1.3, part 3).
ContentDigest digestOfText(const StoredContent& stored);
/// Returns those of a workbook: the texts of cells with their addresses, without the results of formulas, and
/// the cells that names refer to.
ContentDigest digestOfCells(const StoredContent& stored);
/// Returns those of an Office Open XML document (ECMA-376 Part 1, clause 17). Raises kFileCouldNotBeRead with
/// the file's name.
ContentDigest digestOfWordPackage(const std::string& bytes, const std::string& fileName);

/// Collects one text of a document, from its beginning to its end, with its bookmarks.
class DigestedStory {
  public:
    explicit DigestedStory(ContentDigest& digest) : digest_(digest) {}

    [[nodiscard]] ContentDigest& digest() const { return digest_; }
    [[nodiscard]] const std::string& text() const { return text_; }
    void add(std::string_view text);
    /// The identifier is that of the bookmark's end.
    void beginPlace(const std::string& identifier, const std::string& name);
    /// Ignores the end of a bookmark that starts in another story.
    void endPlace(const std::string& identifier);
    void addEmptyPlace(const std::string& name) { digest_.places[name] = {}; }

  private:
    struct Start {
        std::string name;
        std::size_t at = 0;
    };

    ContentDigest& digest_;
    std::string text_;
    std::map<std::string, Start> starts_;
};

}  // namespace mergeloom::libreoffice
