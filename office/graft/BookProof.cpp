#include "office/graft/BookDifference.h"
#include "office/graft/BookGraft.h"
#include "office/graft/BookRules.h"
#include "office/graft/MovedObjects.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace mergeloom::graft {

namespace {

using model::GraftRefusal;

constexpr double kRoundedHeight = 1;   // points
constexpr double kRoundedWidth = 0.2;  // characters

bool isNear(const std::string& a, const std::string& b, double tolerance) {
    return std::abs(std::strtod(a.c_str(), nullptr) - std::strtod(b.c_str(), nullptr)) < tolerance;
}

/// Compares the proof with the edited workbook sheet by sheet.
class BookProof {
  public:
    BookProof(const model::EditedPackage& package, const std::string& editedAgain, const std::string& proof)
        : package_(package),
          edited_(package.edited, package.fileName, numbers_),
          proof_(proof, package.fileName, numbers_) {
        if (!editedAgain.empty()) again_.emplace(editedAgain, package.fileName, numbers_);
    }

    [[nodiscard]] std::optional<GraftRefusal> findFault() {
        if (edited_.sheets().size() != proof_.sheets().size())
            return GraftRefusal{"the result would have other sheets", {}};
        for (const auto& [key, formula] : edited_.names()) {
            const auto found = proof_.names().find(key);
            if (found == proof_.names().end() || found->second != formula)
                return GraftRefusal{"a name would be elsewhere in the result", key.second};
        }
        if (edited_.names().size() != proof_.names().size())
            return GraftRefusal{"the result would have more names", {}};
        for (std::size_t sheet = 0; sheet < edited_.sheets().size(); ++sheet)
            if (auto fault = compare(sheet)) return fault;
        const auto section = differentSection(comparedSections(edited_), comparedSections(proof_));
        if (section && (!again_ || comparedSections(*again_) != comparedSections(proof_)))
            return GraftRefusal{"in the result " + reasonForSection(*section), {}};
        return {};
    }

  private:
    /// Ignores settings of calculations. The result requests a calculation when it is opened, which adds
    /// default values where the original has no settings.
    static std::map<std::string, std::string> comparedSections(const BookExport& book) {
        std::map<std::string, std::string> sections = book.sections();
        sections.erase("calcPr");
        return sections;
    }
    /// Returns the sheet of the edited workbook's export after it was read and written again.
    [[nodiscard]] const ExportedSheet* againAt(std::size_t number) const {
        const bool hasSheet = again_ && number < again_->sheets().size();
        return hasSheet ? &again_->sheets()[number] : nullptr;
    }
    /// Returns the sheet before the changes. Returns null for a new or renamed sheet, and if cells have
    /// moved.
    [[nodiscard]] const ExportedSheet* formerOf(const ExportedSheet& edited) {
        if (!former_) former_.emplace(package_.baseline, package_.fileName, numbers_);
        const auto former = std::ranges::find(former_->sheets(), edited.name(), &ExportedSheet::name);
        return former == former_->sheets().end() || findShift(*former, edited) ? nullptr : &*former;
    }
    [[nodiscard]] bool areObjectsInPlaces(const ExportedSheet& edited, const ExportedSheet* again,
                                          const ExportedSheet& proof) {
        return areInPlaces(proof, {edited, again}) || areInPlaces(proof, {edited, again, formerOf(edited)});
    }
    [[nodiscard]] std::optional<GraftRefusal> compare(std::size_t number) {
        const ExportedSheet& edited = edited_.sheets()[number];
        const ExportedSheet& proof = proof_.sheets()[number];
        const ExportedSheet* const again = againAt(number);
        if (edited.name() != proof.name())
            return GraftRefusal{"the result would have other sheets", edited.name()};
        const SheetDifference difference = differenceBetween(edited_, edited, proof_, proof);
        if (auto fault = cellFault(difference, edited, again, proof)) return fault;
        if (!difference.removedMerges.empty() || !difference.addedMerges.empty())
            return GraftRefusal{"other cells would be merged in the result", edited.name()};
        if (difference.hasOtherLinks && (again == nullptr || again->links != proof.links))
            return GraftRefusal{"in the result a link would differ", edited.name()};
        if (!haveSameSizes(difference))
            return GraftRefusal{"rows or columns would differ in the result", edited.name()};
        const auto section = differentSection(edited.sections, proof.sections);
        if (section && (again == nullptr || again->sections != proof.sections))
            return GraftRefusal{"in the result " + reasonForSection(*section), edited.name()};
        if (edited.objects != proof.objects && (again == nullptr || again->objects != proof.objects))
            return GraftRefusal{"a picture, a chart or a shape would differ in the result", edited.name()};
        if (!areObjectsInPlaces(edited, again, proof))
            return GraftRefusal{"a picture, a chart or a shape would be elsewhere in the result",
                                edited.name()};
        return {};
    }
    /// Compares rows and columns, including formats of empty ones. Sizes may differ by the office's rounding
    /// when it reads files of other programs.
    [[nodiscard]] static bool haveSameSizes(const SheetDifference& difference) {
        return std::ranges::all_of(difference.rows, areNearRows) &&
               std::ranges::all_of(difference.columns, areNearColumns);
    }
    static bool areNearRows(const RowChange& change) {
        if (change.former == nullptr || change.now == nullptr) return false;
        const ExportedRow& former = *change.former;
        const ExportedRow& now = *change.now;
        return former.height && now.height && isNear(*former.height, *now.height, kRoundedHeight) &&
               former.hidden == now.hidden && former.outline == now.outline && !change.hasOtherFormat;
    }
    static bool areNearColumns(const ColumnsChange& change) {
        if (change.former == nullptr || change.now == nullptr) return false;
        const ExportedColumns& former = *change.former;
        const ExportedColumns& now = *change.now;
        return isNear(former.width, now.width, kRoundedWidth) && former.hidden == now.hidden &&
               former.outline == now.outline && !change.hasOtherFormat;
    }
    [[nodiscard]] std::optional<GraftRefusal> cellFault(const SheetDifference& difference,
                                                        const ExportedSheet& edited,
                                                        const ExportedSheet* again,
                                                        const ExportedSheet& proof) const {
        for (const CellChange& change : difference.cells) {
            const std::string place = edited.name() + "!" + addressOf(change.place);
            if (change.hasOtherContent) return GraftRefusal{"a cell of the result would differ", place};
            const bool isAsAgain = again != nullptr && again_->formatAt(*again, change.place) ==
                                                           proof_.formatAt(proof, change.place);
            if (!isAsAgain) return GraftRefusal{"a cell would look different in the result", place};
        }
        return {};
    }

    const model::EditedPackage& package_;
    FormatNumbers numbers_;
    BookExport edited_;
    BookExport proof_;
    std::optional<BookExport> again_;   ///< the edited workbook's export, read and written once more
    std::optional<BookExport> former_;  ///< read when an object is elsewhere
};

}  // namespace

std::optional<model::GraftRefusal> findFaultInBook(const model::EditedPackage& package,
                                                   const std::string& editedAgain, const std::string& proof) {
    return BookProof(package, editedAgain, proof).findFault();
}

}  // namespace mergeloom::graft
