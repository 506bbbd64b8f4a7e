#pragma once

#include "app/DatabaseObjects.h"
#include "app/GnuOptions.h"
#include "app/MappingSource.h"
#include "droppers/PlaceDirectory.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace mergeloom {

/// A named place of a template, as far as it is compared with an object.
struct TemplatePlace {
    enum class Kind : std::uint8_t {
        Place,     ///< shows its name, as a place of a control does
        Table,     ///< covers rows of a table
        Optional,  ///< an optional blank or line break
        Other      ///< has another text; a place if a control makes its name
    };

    std::string name;
    Kind kind = Kind::Other;
    /// The names of the places directly beside an optional one.
    std::vector<std::string> beside{};
};

/// Returns the bookmarks of a document or the names of a workbook. Those that no dropper makes are Other.
std::vector<TemplatePlace> templatePlacesOf(word::Document& document);
std::vector<TemplatePlace> templatePlacesOf(excel::Workbook& workbook);

/// A difference between a template and an object.
struct Finding {
    enum class Kind : std::uint8_t { Place, Table, Control, Optional, SharedName };

    Kind kind;
    std::string name;       ///< of the place, or of the control, with those of the subforms around it
    std::string nearest{};  ///< the name that was perhaps meant; empty if none is near
    std::string sentence{};
};

/// Compares the places of a template with the controls of an object.
std::vector<Finding> checkTemplate(const MappingSource& source, const DatabaseObject& object,
                                   const std::vector<TemplatePlace>& places, PlaceScheme scheme);

/// Writes the findings as sentences, or as a JSON array of objects: "kind" is "place", "table", "control",
/// "optional" or "shared name", "name", "nearest" and "sentence" are texts; "nearest" may be null.
void writeFindings(std::ostream& stream, const std::vector<Finding>& findings, const DatabaseObject& object,
                   ListFormat format);

}  // namespace mergeloom
