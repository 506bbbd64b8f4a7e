#include "describe/DeclaredType.h"

#include "base/Text.h"

#include <array>
#include <charconv>

namespace mergeloom::describe {

namespace {

constexpr int kDecimalsOfMoney = 2;

struct TypeWord {
    std::string_view word;
    ColumnType type;
};

/// The words of declarations. The first one that occurs determines the type, so longer words precede.
constexpr std::array<TypeWord, 24> kTypeWords{{
    {"BOOL", ColumnType::Boolean},
    {"YESNO", ColumnType::Boolean},
    {"DATETIME", ColumnType::DateAndTime},
    {"TIMESTAMP", ColumnType::DateAndTime},
    {"DATE", ColumnType::Date},
    {"TIME", ColumnType::Time},
    {"CHAR", ColumnType::Text},
    {"CLOB", ColumnType::Text},
    {"TEXT", ColumnType::Text},
    {"STRING", ColumnType::Text},
    {"MEMO", ColumnType::Text},
    {"UUID", ColumnType::Text},
    {"BLOB", ColumnType::Bytes},
    {"BINARY", ColumnType::Bytes},
    {"BYTEA", ColumnType::Bytes},
    {"IMAGE", ColumnType::Bytes},
    {"MONEY", ColumnType::Decimal},
    {"CURRENCY", ColumnType::Decimal},
    {"DEC", ColumnType::Decimal},
    {"NUMERIC", ColumnType::Decimal},
    {"REAL", ColumnType::Real},
    {"FLOA", ColumnType::Real},
    {"DOUB", ColumnType::Real},
    {"INT", ColumnType::Integer},
}};

/// Returns the number after the comma of "DECIMAL(10, 2)", or 0 if there is none.
int decimalsOf(std::string_view declaration) {
    const std::size_t comma = declaration.find(',');
    if (comma == std::string_view::npos) return 0;
    const std::string_view digits = trimBlanks(declaration.substr(comma + 1));
    int decimals = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), decimals);
    return decimals < 0 ? 0 : decimals;
}

/// A decimal number without a declared precision keeps the digits that it has.
DeclaredType decimalType(std::string_view declaration, std::string_view word) {
    if (word == "MONEY" || word == "CURRENCY") return {ColumnType::Decimal, kDecimalsOfMoney};
    const bool hasPrecision = declaration.find('(') != std::string_view::npos;
    return hasPrecision ? DeclaredType{ColumnType::Decimal, decimalsOf(declaration)}
                        : DeclaredType{ColumnType::Real};
}

}  // namespace

DeclaredType declaredType(std::string_view declaration) {
    for (const auto& [word, type] : kTypeWords) {
        if (findIgnoringAsciiCase(declaration, word) == std::string_view::npos) continue;
        return type == ColumnType::Decimal ? decimalType(declaration, word) : DeclaredType{type};
    }
    return {};
}

}  // namespace mergeloom::describe
