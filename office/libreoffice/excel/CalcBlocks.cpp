#include "office/libreoffice/excel/CalcBlocks.h"

#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Cells side by side, row by row.
std::vector<CalcArea> runsOf(const std::map<CalcCell, std::string>& texts) {
    std::vector<CalcArea> runs;
    for (const auto& [cell, text] : texts) {
        const bool continues = !runs.empty() && runs.back().last == CalcCell{cell.row, cell.column - 1};
        if (continues) {
            runs.back().last = cell;
        } else {
            runs.push_back({cell, cell});
        }
    }
    return runs;
}

}  // namespace

std::vector<CalcArea> blocksOf(const std::map<CalcCell, std::string>& texts) {
    std::vector<CalcArea> blocks;
    std::map<std::pair<int, int>, std::size_t> lastOfColumns;
    for (const CalcArea& run : runsOf(texts)) {
        const auto [found, isNew] =
            lastOfColumns.try_emplace({run.first.column, run.last.column}, blocks.size());
        const bool isBelow = !isNew && blocks[found->second].last.row == run.first.row - 1;
        if (isBelow) {
            blocks[found->second].last = run.last;
        } else {
            found->second = blocks.size();
            blocks.push_back(run);
        }
    }
    return blocks;
}

}  // namespace mergeloom::libreoffice
