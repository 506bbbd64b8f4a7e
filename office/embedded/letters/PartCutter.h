#pragma once

#include "office/embedded/letters/FilledLetter.h"
#include "office/embedded/letters/ListRestarts.h"
#include "office/embedded/letters/NumberedStyles.h"
#include "office/embedded/letters/Piece.h"
#include "office/embedded/letters/PlaceMarker.h"
#include "office/embedded/parts/PictureParts.h"
#include "office/model/letters/LetterTemplate.h"
#include "office/opc/Package.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The next unused ids of a document.
struct FreeIds {
    std::int64_t nextDrawing = 1;
    std::int64_t nextBookmark = 1;
};

/// A part of a template that was cut into pieces.
struct CutPart {
    std::string name;
    std::string entryName{};      ///< in the archive
    std::string prefix;           ///< of the elements of WordprocessingML
    std::string attributePrefix;  ///< of its attributes
    opc::WordNames names;
    Pieces pieces;
    /// The formatting at the places, by their numbers; empty for places in other parts.
    std::vector<PlaceFormat> formats;
    PartKind kind = PartKind::Body;
    std::string sections{};  ///< the sections of the records so far
};

/// State that is shared by all parts of a template while they are cut.
struct CuttingContext {
    const MarkedPlaces& marked;
    letters::LetterSettings settings;
    opc::Package& package;
    FileStore& files;
    ListRestarts& lists;
    const NumberedStyles& styles;
    PictureParts pictures{package};
    /// The ids of relationships to headers and footers that contain places.
    std::set<std::string> linkedParts{};
    /// True if comments contain places, so that each record has comments of its own.
    bool repeatsComments = false;
    std::size_t labelsPerSheet = 0;  ///< 0 for a document that is no sheet of labels
    std::vector<std::string> refusals{};
    std::set<letters::ControlPath> tablesWithoutRows{};
    /// The subforms of which places outside of repeated rows show only the first record.
    std::set<letters::ControlPath> firstRecordsOnly{};
    bool listsRecords = false;
    /// True if a record of one document ends with a paragraph that the template does not have, or begins
    /// with a table, which LibreOffice shows below the headers of the previous record.
    bool needsOwnDocument = false;
};

/// Cuts a part at its tokens. Rows that list records become pieces that repeat.
CutPart cutPart(CuttingContext& context, opc::XmlPart& part, PartKind kind);

}  // namespace mergeloom::embedded
