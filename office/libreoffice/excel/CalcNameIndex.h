#pragma once

#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/NameCounters.h"

#include <com/sun/star/sheet/XNamedRange.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace mergeloom::libreoffice {

/// Which names a document has, kept on this side since the question is asked for each place. Calc tells names
/// apart as Excel does, without regard to case, but is asked by their exact spelling.
class CalcNameIndex {
  public:
    struct Entry {
        std::string name;
        int sheet;  ///< counted from 0; kDocument for a name of the workbook
    };
    static constexpr int kDocument = -1;

    void append(const std::string& name, int sheet);
    /// Takes the entry appended last out again.
    void removeLast();
    void reserveTableName(const std::string& name);

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    [[nodiscard]] std::optional<std::size_t> find(const std::string& name, int sheet) const;
    [[nodiscard]] bool isTableName(const std::string& name) const;
    /// The smallest number from 1 that makes no name of the workbook behind the stem.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);

  private:
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> indexes_;
    std::unordered_set<std::string> tables_;
    model::NameCounters counters_;
};

}  // namespace mergeloom::libreoffice
