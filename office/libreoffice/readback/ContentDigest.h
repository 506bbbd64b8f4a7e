#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace mergeloom::libreoffice {

/// The texts and places of a document, in a form in which two of its formats compare: without white space and
/// without the characters that a format keeps as elements.
struct ContentDigest {
    std::string text;                           ///< of the body
    std::map<std::string, std::string> places;  ///< the text of each bookmark, in whatever story
};

/// Says what is other in what was written, as a clause; empty when nothing is.
std::string difference(const ContentDigest& expected, const ContentDigest& written);

/// A text of the document that is read from its beginning to its end, with the bookmarks in it.
class DigestedStory {
  public:
    explicit DigestedStory(ContentDigest& digest) : digest_(digest) {}

    [[nodiscard]] ContentDigest& digest() const { return digest_; }
    [[nodiscard]] const std::string& text() const { return text_; }
    void add(std::string_view text);
    /// The identifier is the one that the bookmark's end bears, too.
    void beginPlace(const std::string& identifier, const std::string& name);
    /// Ends that belong to a start in another story are passed over.
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
