#pragma once

#include "office/embedded/letters/ListRestarts.h"
#include "office/opc/Package.h"
#include "office/opc/WordNames.h"

#include <map>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The list into which a style puts its paragraphs.
struct StyleList {
    std::string id{};
    std::string level{};  ///< of the paragraphs, if no level of the list names one of the styles
    std::vector<std::string> styles{};  ///< from the style itself to the one with the list
    /// The indents of these styles, by the attributes. They take precedence over those of the list.
    std::map<std::string, std::string> indents{};
};

/// The paragraph styles with a list of their own or of a style that they are based on (ECMA-376 Part 1,
/// 17.7.4.17 and 17.9.23).
class NumberedStyles {
  public:
    explicit NumberedStyles(opc::Package& package);

    /// Returns the id of the list of a paragraph, by its own properties or by its style; empty if it has
    /// none.
    [[nodiscard]] std::string listOf(pugi::xml_node paragraph, const opc::WordNames& names) const;
    /// Copies the list of the style into the properties of a paragraph if the list is numbered.
    void copyListTo(pugi::xml_node paragraph, const opc::WordNames& names, const ListRestarts& lists) const;

  private:
    struct Style {
        std::string basedOn;
        std::string list;
        std::string level;
        std::map<std::string, std::string> indents;
    };

    void read(pugi::xml_node style, const opc::WordNames& names);
    void resolve(const std::string& id);
    /// Returns the list of the style that a paragraph has; null if there is none.
    [[nodiscard]] const StyleList* styleListOf(pugi::xml_node properties, const opc::WordNames& names) const;

    std::map<std::string, Style> styles_;
    std::map<std::string, StyleList> lists_;  ///< by the ids of the styles
    std::string default_;                     ///< the id of the style of paragraphs that name none
};

}  // namespace mergeloom::embedded
