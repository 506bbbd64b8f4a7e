#pragma once

#include "office/model/FreeNumbers.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace mergeloom::libreoffice {

/// An index of the document's names, which saves a remote call for each place. Calc distinguishes names as
/// Excel does, ignoring case, but finds them only by their exact spelling.
class CalcNameIndex {
  public:
    struct Entry {
        std::string name;
        int sheet;  ///< counted from 0; kDocument for a name of the workbook
    };
    static constexpr int kDocument = -1;

    void append(const std::string& name, int sheet);
    /// Removes the entry that was appended last.
    void removeLast();
    /// Removes an entry; those after it move up. insert() puts it back.
    void remove(std::size_t index);
    void insert(const Entry& entry, std::size_t index);
    void reserveTableName(const std::string& name);

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    [[nodiscard]] std::optional<std::size_t> find(const std::string& name, int sheet) const;
    [[nodiscard]] bool isTableName(const std::string& name) const;
    /// Returns the smallest number n from 1 for which no name of the workbook is stem followed by n.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);

  private:
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> indexes_;
    std::unordered_set<std::string> tables_;
    model::FreeNumbers counters_;
};

}  // namespace mergeloom::libreoffice
