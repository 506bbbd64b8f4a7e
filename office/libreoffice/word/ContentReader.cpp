#include "office/libreoffice/word/ContentReader.h"

#include "office/libreoffice/word/StoryReader.h"
#include "office/libreoffice/word/StoryTexts.h"

#include <algorithm>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

struct Marginal {
    const char* element;
    const char* kind;
    const char* property;
};

constexpr Marginal kMarginals[] = {
    {"style:header", "header", "HeaderText"},
    {"style:header-left", "header", "HeaderTextLeft"},
    {"style:header-first", "header", "HeaderTextFirst"},
    {"style:footer", "footer", "FooterText"},
    {"style:footer-left", "footer", "FooterTextLeft"},
    {"style:footer-first", "footer", "FooterTextFirst"},
};

/// The name that a style has for users; the one in the file cannot have blanks.
std::string shownName(const pugi::xml_node& style) {
    const pugi::xml_attribute shown = style.attribute("style:display-name");
    return (shown ? shown : style.attribute("style:name")).value();
}

}  // namespace

void ContentReader::read() {
    for (WriterStory& story : stories_)
        story.map().clear();
    marks_.clear();
    const StoredContent stored = storedContentOf(session_, model_.document);
    readStory("body", bodyText(), stored.content->root().child("office:body").child("office:text"));
    readPages(stored.styles->root());
}

void ContentReader::readEmpty() {
    storyOf("body", bodyText()).map().clear();
    marks_.clear();
}

TextSource ContentReader::bodyText() const {
    return [text = model_.text] { return text->getText(); };
}

WriterStory& ContentReader::storyOf(const std::string& name, const TextSource& source) {
    const auto known = std::ranges::find(stories_, name, &WriterStory::name);
    if (known == stories_.end()) return stories_.emplace_back(name, source, model_.tables);
    known->renew(source);
    return *known;
}

void ContentReader::readStory(const std::string& name, const TextSource& source, const pugi::xml_node& root) {
    const OnStory onStory = [this](const pugi::xml_node& element) { readWithin(element); };
    StoryReader(storyOf(name, source), marks_, onStory).read(root);
}

/// A note, or a drawing with the boxes in it.
void ContentReader::readWithin(const pugi::xml_node& element) {
    if (std::string_view(element.name()) == "text:note") return readNote(element);
    const std::string name = element.attribute("draw:name").value();
    if (const pugi::xml_node box = element.child("draw:text-box")) return readBox(name, box);
    // A shape's own text stands in it without a box.
    if (element.child("text:p") || element.child("text:list")) return readBox(name, element);
    for (const pugi::xml_node child : element.children()) {
        if (std::string_view(child.name()).starts_with("draw:")) readWithin(child);
    }
}

void ContentReader::readPages(const pugi::xml_node& styles) {
    for (const pugi::xml_node page : styles.child("office:master-styles").children("style:master-page")) {
        for (const Marginal& marginal : kMarginals) {
            const pugi::xml_node root = page.child(marginal.element);
            if (!root) continue;
            const std::string number = std::to_string(++counts_[marginal.kind]);
            readStory(marginal.kind + (" " + number), pageText(model_, shownName(page), marginal.property),
                      root);
        }
    }
}

void ContentReader::readNote(const pugi::xml_node& note) {
    const bool isFootnote = std::string_view(note.attribute("text:note-class").value()) == "footnote";
    const std::string kind = isFootnote ? "footnote" : "endnote";
    const int number = counts_[kind]++;
    const TextSource source = isFootnote ? footnoteText(model_, number) : endnoteText(model_, number);
    readStory(kind + " " + std::to_string(number + 1), source, note.child("text:note-body"));
}

void ContentReader::readBox(const std::string& drawing, const pugi::xml_node& root) {
    readStory("text box " + std::to_string(++counts_["text box"]), boxText(model_, drawing), root);
}

}  // namespace mergeloom::libreoffice
