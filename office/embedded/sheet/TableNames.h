#pragma once

#include "office/opc/Package.h"

#include <optional>
#include <set>
#include <string>

namespace mergeloom::embedded {

/// The names of all tables of a workbook (displayName, ECMA-376 Part 1, 18.5.1.2). They share one space with
/// the defined names of the workbook: where both have a name, Excel calls the workbook damaged. They are read
/// when they are asked for first.
class TableNames {
  public:
    /// The package must outlive the names.
    explicit TableNames(const opc::Package& package) : package_(package) {}

    /// Whether a table has the name, letter case aside. Raises kFileCouldNotBeRead for a malformed table.
    [[nodiscard]] bool has(const std::string& name);

  private:
    const opc::Package& package_;
    std::optional<std::set<std::string>> names_;  ///< case folded
};

}  // namespace mergeloom::embedded
