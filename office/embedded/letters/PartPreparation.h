#pragma once

#include "office/embedded/letters/FilledLetter.h"
#include "office/embedded/letters/PartCutter.h"
#include "office/embedded/letters/RowPatterns.h"
#include "office/embedded/letters/Token.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace mergeloom::embedded {

/// Inserts the tokens at which the XML of a part is cut into its tree.
class PartPreparation {
  public:
    PartPreparation(CuttingContext& context, opc::XmlPart& part, PartKind kind);

    void prepare();

    /// Returns the formatting at the places, by their numbers.
    [[nodiscard]] const std::vector<PlaceFormat>& formats() const { return formats_; }
    /// Returns the runs that preserve the places of omitted optional text.
    [[nodiscard]] const std::vector<std::string>& optionalKeepers() const { return optionalKeepers_; }
    /// Returns the properties of the paragraphs after optional line ends, if they differ from those before.
    [[nodiscard]] const std::vector<std::string>& optionalParagraphs() const { return optionalParagraphs_; }
    [[nodiscard]] const std::vector<std::string>& onceXml() const { return once_; }
    /// Returns the content of labels without a record.
    [[nodiscard]] const std::vector<std::string>& emptyLabels() const { return emptyLabels_; }
    [[nodiscard]] const std::vector<std::string>& ids() const { return ids_; }
    /// Returns the rows that are repeated, by the numbers of their tokens.
    [[nodiscard]] const std::vector<RowPattern>& patterns() const { return patterns_; }
    [[nodiscard]] const std::string& sectionBreak() const { return sectionBreak_; }

  private:
    void collect(pugi::xml_node node);
    void collectBookmark(pugi::xml_node node, opc::WordTag tag);
    void markValues();
    void markValue(pugi::xml_node text, std::size_t number);
    void findTables();
    [[nodiscard]] std::vector<std::string> marksAcross(pugi::xml_node first, pugi::xml_node last) const;
    void markRows(const RowPattern& pattern);
    void keepXml(RowPattern& pattern) const;
    [[nodiscard]] std::string templateXmlOf(pugi::xml_node element) const;
    void markOptionals();
    void findLabels();
    void copyLabels();
    [[nodiscard]] std::string propertiesXml(pugi::xml_node paragraph) const;
    [[nodiscard]] std::string keeperXml(pugi::xml_node mark) const;
    void markPictures();
    void markPicture(const PartBookmark& bookmark, std::size_t number);
    void showImage(pugi::xml_node drawing, const std::string& image);
    void markRepeated();
    void markBookmark(const PartBookmark& bookmark);
    void markOnce(pugi::xml_node node);
    void makeRepeatable(pugi::xml_node node);
    void makeElementRepeatable(pugi::xml_node element);
    [[nodiscard]] bool isRepeatedShapeType(pugi::xml_node element) const;
    [[nodiscard]] bool isRepeated(pugi::xml_node node) const;
    void markSections();
    void markBodySections();
    void markRecord(pugi::xml_node body);
    void checkFirstHeaders(pugi::xml_node firstSection, pugi::xml_node body) const;
    void markNotes();
    void markNoteIds(pugi::xml_node below);
    void markPartLinks(pugi::xml_node below);
    void markId(pugi::xml_attribute attribute, TokenKind kind);
    void markSectionBreak(pugi::xml_node body, pugi::xml_node section);
    void markParagraphSection(pugi::xml_node section);

    static std::string xmlOf(pugi::xml_node node);
    static void insertBefore(pugi::xml_node node, const Token& token);
    static void insertAfter(pugi::xml_node node, const Token& token);

    CuttingContext& context_;
    opc::XmlPart& part_;
    opc::WordNames names_;
    PartKind kind_;
    std::vector<PlaceFormat> formats_;
    std::vector<std::string> optionalKeepers_;
    std::vector<std::string> optionalParagraphs_;
    std::vector<std::string> once_;
    std::vector<std::string> ids_;
    std::string sectionBreak_;

    std::vector<RowPattern> patterns_;

    std::vector<PartBookmark> bookmarks_;
    std::unordered_map<std::string, std::size_t> bookmarksById_;
    std::vector<pugi::xml_node> texts_;
    std::unordered_map<std::string, std::size_t> placesByName_;
    /// The elements that are repeated: pattern rows, and the first label of a sheet.
    std::unordered_set<std::size_t> repeatedNodes_;
    std::vector<pugi::xml_node> labels_;
    std::vector<std::string> emptyLabels_;
};

}  // namespace mergeloom::embedded
