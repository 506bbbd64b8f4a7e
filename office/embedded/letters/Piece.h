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

/// A value of the current record of one level. The letter's own record is level 0, and each enclosing table
/// adds one.
struct ValuePath {
    std::size_t level = 0;
    letters::ControlPath path{};
};

/// Decides what a table shows of its pattern rows if there are no records.
enum class WithoutRecords : std::uint8_t { RemoveRows, EmptyRows };

/// A piece of a template's XML: either fixed text or content that depends on the records.
struct Piece {
    enum class Kind : std::uint8_t {
        Fixed,         ///< fixed XML
        Value,         ///< the value of a place
        Rows,          ///< XML that is repeated for each record of a subform
        Table,         ///< XML that can be removed if its subform has no records
        Once,          ///< XML that is written only in the first repetition
        Id,            ///< an id, which must differ between repetitions
        Optional,      ///< XML that is omitted if a value beside it is empty
        Picture,       ///< a drawing with the picture of a place
        Label,         ///< the content of the label with that number
        NoteId,        ///< the id of a note or a comment, which differs between sections
        PartLink,      ///< the relationship to a header or footer, which differs between sections
        Section,       ///< the section of a record
        SectionBreak,  ///< the properties of a section, except of the last one
        /// The properties of a section in a paragraph. If rich text splits the paragraph, its last part gets
        /// them.
        ParagraphSection,
        AnnotationId,  ///< the id of a tracked change, which must differ between repetitions
        ShapeId,       ///< the id of a shape, which must differ between repetitions
        ListId,        ///< the id of a list, which differs between sections
        RecordMark,    ///< the bookmark at the start of a record
    };

    Kind kind = Kind::Fixed;
    std::string xml{};       ///< the fixed XML, the id in the template, or what replaces the piece
    std::string omitted{};   ///< what a letter keeps of rows, a table or a line that it leaves out
    std::size_t number = 0;  ///< of the place, the table or the picture
    WithoutRecords withoutRecords = WithoutRecords::RemoveRows;  ///< of rows
    ValuePath source{};                                          ///< of a value, of rows and of a table
    Pieces inside{};                                             ///< of rows, a table or an optional text
    std::vector<Piece> beside{};                                 ///< the values beside an optional text
    std::vector<std::size_t> hints{};  ///< where the controls of the path were found
};

/// The formatting at a place, as XML.
struct PlaceFormat {
    std::string prefix = "w:";           ///< of the elements of WordprocessingML
    std::string attributePrefix = "w:";  ///< of its attributes
    /// The children of the run's properties: their local names and their XML.
    std::vector<std::pair<std::string, std::string>> runProperties{};
    /// The properties of the paragraphs that rich text adds after the first: the whole element, or empty.
    std::string paragraphProperties{};
    Pieces paragraphPieces{};  ///< of these properties
    bool isWholeRun = true;    ///< false in the code of a field, which contains only text
    bool canSplit = true;      ///< true if the paragraph can be split at the place
};

}  // namespace mergeloom::embedded
