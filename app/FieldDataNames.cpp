#include "app/FieldDataNames.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/FieldCode.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"

#include <algorithm>

namespace mergeloom {

namespace {

using word::WdFieldType;

/// Names, each once regardless of letter case. Pieces that make no name are left out.
class DistinctNames {
  public:
    void add(const std::string& name) {
        const std::string folded = foldCase(WordNormalizeName(name, false));
        if (folded.empty() || std::ranges::find(folded_, folded) != folded_.end()) return;
        folded_.push_back(folded);
        names_.push_back(name);
    }
    [[nodiscard]] const std::vector<std::string>& names() const { return names_; }

  private:
    std::vector<std::string> names_;
    std::vector<std::string> folded_;
};

void addNested(word::Fields& fields, WdFieldType type, std::size_t piece, DistinctNames& names) {
    for (int number = 1; number <= fields.Count(); ++number) {
        const word::FieldPtr field = fields.Item(number);
        if (field->Type() != type) continue;
        const std::vector<std::string> pieces = word::piecesOfCode(field->Code()->Text());
        if (pieces.size() > piece) names.add(pieces[piece]);
    }
}

std::string pieceOf(const std::string& code, std::size_t index) {
    const std::vector<std::string> pieces = word::piecesOfCode(code);
    if (index >= pieces.size()) {
        throw AutomationError(kSubscriptOutOfRange,
                              "The field '" + word::shownCode(code) + "' has too few words.");
    }
    return pieces[index];
}

/// Returns true for a QUOTE or an IF field whose text is the result of a field that is no data place, such as
/// a page number.
bool isTextOfOtherField(word::Field& field, word::Range& code, word::Fields& nested, std::size_t ownPiece) {
    const WdFieldType type = field.Type();
    return (type == WdFieldType::wdFieldQuote || type == WdFieldType::wdFieldIf) && nested.Count() > 0 &&
           word::piecesOfCode(code.Text()).size() <= ownPiece;
}

}  // namespace

std::vector<std::string> dataNames(word::Field& field, std::size_t ownPiece) {
    const word::RangePtr code = field.Code();
    const word::FieldsPtr nested = code->Fields();
    DistinctNames names;
    if (field.Type() == WdFieldType::wdFieldMergeField) names.add(pieceOf(code->Text(), ownPiece));
    addNested(*nested, WdFieldType::wdFieldMergeField, kNameInMergeField, names);
    if (names.names().empty()) addNested(*nested, WdFieldType::wdFieldQuote, kNameInQuote, names);
    if (!names.names().empty()) return names.names();
    if (isTextOfOtherField(field, *code, *nested, ownPiece)) return {};
    return {pieceOf(code->Text(), ownPiece)};
}

}  // namespace mergeloom
