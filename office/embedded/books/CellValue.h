#pragma once

#include "base/Record.h"
#include "office/model/letters/PlaceSource.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The number format of a cell, as far as it decides what a value becomes.
enum class NumberFormat : std::uint8_t { General, Text, Other };

/// The day from which a workbook counts days (ECMA-376 Part 1, 18.17.4.1).
enum class DateSystem : std::uint8_t { From1900, From1904 };

/// A value as a cell stores it.
struct CellValue {
    enum class Kind : std::uint8_t { Empty, Text, Number, Boolean, Date, DateAndTime };
    Kind kind = Kind::Empty;
    std::string text{};  ///< the text itself, or what the cell's XML stores
};

/// Reads a value that a database stores: a number, an ISO date with or without a time, or a boolean. Anything
/// else is a text, and so is a number that a cell could not hold exactly, such as "007" or one of 16 digits,
/// and a date before the first day of the date system.
CellValue readStored(std::string_view text, DateSystem dates);

/// Returns the value of a control for a place. A place for the bound value takes that. A place for the
/// displayed value takes the bound value, too, where both are the same number, date or boolean; otherwise the
/// displayed text. A displayed number without a bound value is a number in a cell with a number format.
CellValue cellValueOf(const RecordControl& control, letters::ValueKind kind, NumberFormat format,
                      DateSystem dates);

}  // namespace mergeloom::embedded
