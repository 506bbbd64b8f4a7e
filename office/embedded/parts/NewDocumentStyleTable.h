#pragma once

#include <string_view>

/// The styles of a new document, which NewDocument writes.
namespace mergeloom::embedded {

/// The display of a style in Word's lists (ECMA-376 Part 1, 17.7.4): Quick ones are in the gallery, OnUse
/// ones hide until they are used.
enum class Shown { Always, Quick, QuickOnUse, OnUse };

/// One style; empty texts mean elements that the style does not have.
struct Style {
    std::string_view type, id, name, basedOn, next;
    int priority;
    Shown shown;
    std::string_view paragraph, run, table;
};

inline constexpr std::string_view kTableNormal = R"(<w:tblPr><w:tblInd w:w="0" w:type="dxa"/><w:tblCellMar>
<w:top w:w="0" w:type="dxa"/><w:left w:w="108" w:type="dxa"/>
<w:bottom w:w="0" w:type="dxa"/><w:right w:w="108" w:type="dxa"/>
</w:tblCellMar></w:tblPr>)";
inline constexpr std::string_view kTableGrid = R"(<w:tblPr><w:tblBorders>
<w:top w:val="single" w:sz="4" w:space="0" w:color="auto"/>
<w:left w:val="single" w:sz="4" w:space="0" w:color="auto"/>
<w:bottom w:val="single" w:sz="4" w:space="0" w:color="auto"/>
<w:right w:val="single" w:sz="4" w:space="0" w:color="auto"/>
<w:insideH w:val="single" w:sz="4" w:space="0" w:color="auto"/>
<w:insideV w:val="single" w:sz="4" w:space="0" w:color="auto"/>
</w:tblBorders></w:tblPr>)";

inline constexpr std::string_view kPageEdge =
    R"(<w:tabs><w:tab w:val="center" w:pos="4513"/><w:tab w:val="right" w:pos="9026"/></w:tabs>)"
    R"(<w:spacing w:after="0" w:line="240" w:lineRule="auto"/>)";
inline constexpr std::string_view kSingleSpaced =
    R"(<w:spacing w:after="0" w:line="240" w:lineRule="auto"/>)";
inline constexpr std::string_view kTitleSpacing =
    R"(<w:spacing w:after="0" w:line="240" w:lineRule="auto"/><w:contextualSpacing/>)";

inline constexpr Style kFirstStyles[] = {
    {"paragraph", "Normal", "Normal", "", "", 0, Shown::Quick, "", "", ""},
    {"character", "DefaultParagraphFont", "Default Paragraph Font", "", "", 1, Shown::OnUse, "", "", ""},
    {"table", "TableNormal", "Normal Table", "", "", 99, Shown::OnUse, "", "", kTableNormal},
    {"numbering", "NoList", "No List", "", "", 99, Shown::OnUse, "", "", ""},
};

inline constexpr Style kLinkedStyles[] = {
    {"paragraph", "Title", "Title", "Normal", "Normal", 10, Shown::Quick, kTitleSpacing,
     R"(<w:rFonts w:asciiTheme="majorHAnsi" w:eastAsiaTheme="majorEastAsia" w:hAnsiTheme="majorHAnsi" )"
     R"(w:cstheme="majorBidi"/><w:spacing w:val="-10"/><w:kern w:val="28"/><w:sz w:val="56"/>)"
     R"(<w:szCs w:val="56"/>)",
     ""},
    {"paragraph", "Subtitle", "Subtitle", "Normal", "Normal", 11, Shown::Quick, "",
     R"(<w:color w:val="5C5C5C"/><w:spacing w:val="15"/><w:sz w:val="26"/><w:szCs w:val="26"/>)", ""},
    {"paragraph", "Header", "header", "Normal", "", 99, Shown::OnUse, kPageEdge, "", ""},
    {"paragraph", "Footer", "footer", "Normal", "", 99, Shown::OnUse, kPageEdge, "", ""},
};

inline constexpr Style kOtherStyles[] = {
    {"paragraph", "NoSpacing", "No Spacing", "", "", 1, Shown::Quick, kSingleSpaced, "", ""},
    {"paragraph", "ListParagraph", "List Paragraph", "Normal", "", 34, Shown::Quick,
     R"(<w:ind w:left="720"/><w:contextualSpacing/>)", "", ""},
    {"paragraph", "Caption", "caption", "Normal", "Normal", 35, Shown::QuickOnUse,
     R"(<w:spacing w:after="200" w:line="240" w:lineRule="auto"/>)",
     R"(<w:i/><w:iCs/><w:color w:val="3A4654" w:themeColor="text2"/><w:sz w:val="18"/><w:szCs w:val="18"/>)",
     ""},
    {"character", "Emphasis", "Emphasis", "DefaultParagraphFont", "", 20, Shown::Quick, "", "<w:i/><w:iCs/>",
     ""},
    {"character", "Strong", "Strong", "DefaultParagraphFont", "", 22, Shown::Quick, "", "<w:b/><w:bCs/>", ""},
    {"character", "Hyperlink", "Hyperlink", "DefaultParagraphFont", "", 99, Shown::OnUse, "",
     R"(<w:color w:val="0A5FC0" w:themeColor="hyperlink"/><w:u w:val="single"/>)", ""},
    {"table", "TableGrid", "Table Grid", "TableNormal", "", 39, Shown::Always, kSingleSpaced, "", kTableGrid},
};

/// The differences of the nine levels of headings; sizes in half points, spacing in twentieths of a point.
struct Heading {
    int spaceBefore, size;
    bool italic;
    std::string_view color;
};

inline constexpr std::string_view kAccent = R"(w:val="2F5388" w:themeColor="accent1" w:themeShade="BF")";
inline constexpr std::string_view kAccentDark = R"(w:val="1F375A" w:themeColor="accent1" w:themeShade="80")";
inline constexpr std::string_view kGrey = R"(w:val="404040" w:themeColor="text1" w:themeTint="BF")";

inline constexpr Heading kHeadings[] = {
    {240, 32, false, kAccent},    {160, 28, false, kAccent}, {160, 24, false, kAccent},
    {80, 22, true, kAccent},      {80, 22, false, kAccent},  {40, 22, true, kAccentDark},
    {40, 22, false, kAccentDark}, {40, 21, true, kGrey},     {40, 21, false, kGrey},
};

/// A built-in style and how Word ranks it in its lists as long as the document does not use it.
struct LatentStyle {
    std::string_view name;
    int priority;
    Shown shown;
};

inline constexpr LatentStyle kLatentStyles[] = {
    {"Normal", 0, Shown::Quick},
    {"Title", 10, Shown::Quick},
    {"Subtitle", 11, Shown::Quick},
    {"Default Paragraph Font", 1, Shown::OnUse},
    {"caption", 35, Shown::QuickOnUse},
    {"Table Grid", 39, Shown::Always},
    {"No Spacing", 1, Shown::Quick},
    {"List Paragraph", 34, Shown::Quick},
    {"Subtle Emphasis", 19, Shown::Quick},
    {"Emphasis", 20, Shown::Quick},
    {"Intense Emphasis", 21, Shown::Quick},
    {"Strong", 22, Shown::Quick},
    {"Quote", 29, Shown::Quick},
    {"Intense Quote", 30, Shown::Quick},
    {"Subtle Reference", 31, Shown::Quick},
    {"Intense Reference", 32, Shown::Quick},
    {"Book Title", 33, Shown::Quick},
    {"TOC Heading", 39, Shown::QuickOnUse},
};

}  // namespace mergeloom::embedded
