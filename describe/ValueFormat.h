#pragma once

#include "describe/Conventions.h"
#include "describe/Database.h"
#include "describe/IsoDate.h"

#include <string>
#include <string_view>
#include <utility>

namespace mergeloom::describe {

/// A value as text.
struct ValueText {
    std::string shown{};   ///< as a person reads it
    std::string stored{};  ///< numbers, dates and booleans as XML Schema writes them
};

/// Writes the values of a database.
class ValueFormat {
  public:
    explicit ValueFormat(Conventions conventions) : conventions_(std::move(conventions)) {}

    /// Replaces the texts. A text in the column of a number or a date that is none stays as it is. Both are
    /// empty for Bytes and, unless the format of the column has a text for it, for Null.
    void write(const Value& value, const Column& column, ValueText& text) const;

  private:
    void writeInteger(std::int64_t number, const Column& column, ValueText& text) const;
    void writeText(std::string_view value, const Column& column, ValueText& text) const;
    void writeNumber(double number, std::string_view digits, const Column& column, ValueText& text) const;
    void writeDecimal(std::string digits, ValueText& text) const;
    [[nodiscard]] bool writeByFormat(std::string_view digits, const Column& column, ValueText& text) const;
    std::size_t writePoint(std::string& number) const;
    [[nodiscard]] std::string shownDate(const IsoDate& date, const std::string& format) const;

    Conventions conventions_;
};

}  // namespace mergeloom::describe
