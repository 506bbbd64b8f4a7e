#pragma once

#include "office/model/letters/PlaceSource.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

struct Piece;
using Pieces = std::vector<Piece>;

/// The formatting at a place, as XML.
struct PlaceFormat {
    std::string prefix = "w:";           ///< of the elements of WordprocessingML
    std::string attributePrefix = "w:";  ///< of its attributes
    /// The children of the run's properties: their local names and their XML.
    std::vector<std::pair<std::string, std::string>> runProperties{};
    std::string paragraphProperties{};  ///< the whole element, or empty
    bool isWholeRun = true;             ///< false in a field's code, which takes text alone
    bool canSplit = true;               ///< the paragraph may end at the place
};

/// A value of the records of one level: the enclosing tables' current records are numbered from the
/// outermost, the letter's own record, which is 0.
struct ValuePath {
    std::size_t level = 0;
    letters::ControlPath path{};
};

/// A part of a template's XML that is always the same, or what stands between two such parts.
struct Piece {
    enum class Kind : std::uint8_t {
        Fixed,         ///< the XML itself
        Value,         ///< a place's value
        Rows,          ///< XML that is repeated for each record of a subform
        Table,         ///< XML that may go when its subform has no records
        Once,          ///< XML of the first repetition only
        Id,            ///< an id, which has to be another one in each repetition
        Optional,      ///< XML that goes when a value beside it is empty
        Picture,       ///< a drawing that shows a place's picture
        Label,         ///< the content of a label, which shows the record of its number
        NoteId,        ///< the id of a note, which each section has of its own
        PartLink,      ///< the relationship of a header or a footer that differs from section to section
        Section,       ///< the section of a record
        SectionBreak,  ///< the properties of a section that another one follows
    };

    Kind kind = Kind::Fixed;
    std::string xml{};                 ///< of what is fixed; the id of the template
    std::size_t number = 0;            ///< of the place, the table or the picture
    ValuePath source{};                ///< of a value, of rows and of a table
    Pieces inside{};                   ///< of rows, a table or an optional text
    std::vector<Piece> beside{};       ///< the values beside an optional text
    std::vector<std::size_t> hints{};  ///< where the controls of the path were found
};

}  // namespace mergeloom::embedded
