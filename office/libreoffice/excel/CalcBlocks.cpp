#include "office/libreoffice/excel/CalcBlocks.h"

#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Cells side by side, row by row.
std::vector<excel::CellArea> runsOf(const std::map<excel::CellPosition, std::string>& texts) {
    std::vector<excel::CellArea> runs;
    for (const auto& [cell, text] : texts) {
        const bool continues =
            !runs.empty() && runs.back().last == excel::CellPosition{cell.row, cell.column - 1};
        if (continues) {
            runs.back().last = cell;
        } else {
            runs.push_back({cell, cell});
        }
    }
    return runs;
}

}  // namespace

std::vector<excel::CellArea> blocksOf(const std::map<excel::CellPosition, std::string>& texts) {
    std::vector<excel::CellArea> blocks;
    std::map<std::pair<int, int>, std::size_t> lastOfColumns;
    for (const excel::CellArea& run : runsOf(texts)) {
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
