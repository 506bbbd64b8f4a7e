#include "describe/ConditionTranslator.h"

#include "base/Text.h"
#include "describe/SelectStatement.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace mergeloom::describe {

namespace {

/// Raised for an expression that cannot be translated.
struct NotTranslated {};

enum class ValueClass { Number, Real, Decimal, Text, Truth, Date };

struct Operand {
    std::string text{};
    ValueClass kind = ValueClass::Number;
    bool isColumn = false;
};

ValueClass classOf(ColumnType type) {
    switch (type) {
        case ColumnType::Integer:
            return ValueClass::Number;
        case ColumnType::Real:
            return ValueClass::Real;
        case ColumnType::Decimal:
            return ValueClass::Decimal;
        case ColumnType::Text:
            return ValueClass::Text;
        case ColumnType::Boolean:
            return ValueClass::Truth;
        case ColumnType::DateAndTime:
            return ValueClass::Date;
        default:
            throw NotTranslated();
    }
}

class Translator {
  public:
    Translator(std::string_view rest, const ColumnFinder& find, TextColumns texts)
        : rest_(rest), find_(find), texts_(texts) {}

    std::string translate() {
        std::string text = alternatives();
        skipSpace();
        if (!rest_.empty()) throw NotTranslated();
        return text;
    }

  private:
    void skipSpace() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size())); }

    bool takeSign(std::string_view sign) {
        skipSpace();
        if (!rest_.starts_with(sign)) return false;
        rest_.remove_prefix(sign.size());
        return true;
    }

    bool takeWord(std::string_view word) {
        skipSpace();
        if (!equalsIgnoringAsciiCase(rest_.substr(0, word.size()), word)) return false;
        const std::string_view following = rest_.substr(word.size(), 1);
        const bool goesOn =
            !following.empty() && (std::isalnum(static_cast<unsigned char>(following[0])) != 0 ||
                                   following[0] == '_' || !isAscii(following[0]));
        if (goesOn) return false;
        rest_.remove_prefix(word.size());
        return true;
    }

    std::string alternatives() {
        std::string text = "(" + conjunction();
        while (takeWord("OR"))
            text.append(" OR ").append(conjunction());
        return text + ")";
    }

    std::string conjunction() {
        std::string text = negation();
        while (takeWord("AND"))
            text.append(" AND ").append(negation());
        return text;
    }

    std::string negation() {
        if (++depth_ > kMaxDepth) throw NotTranslated();
        std::string text = takeWord("NOT") ? "NOT (" + negation() + ")" : primary();
        --depth_;
        return text;
    }

    /// A bracket may be that of a condition or that of an operand.
    std::string primary() {
        const std::string_view before = rest_;
        const int depth = depth_;
        if (takeSign("(")) {
            try {
                std::string text = "(" + alternatives() + ")";
                if (takeSign(")") && !isAtOperator()) return text;
            } catch (const NotTranslated&) {
                // It is that of an operand.
            }
            rest_ = before;
            depth_ = depth;
        }
        return comparison();
    }

    [[nodiscard]] bool isAtOperator() {
        skipSpace();
        return !rest_.empty() && std::string_view("=<>+-*/&^\\").find(rest_[0]) != std::string_view::npos;
    }

    std::string comparison() {
        const Operand left = operand();
        if (takeWord("IS")) return nullTest(left);
        const bool isNegated = takeWord("NOT");
        std::string text;
        if (takeWord("BETWEEN")) {
            const std::string low = compared(left, ">=", operand());
            if (!takeWord("AND")) throw NotTranslated();
            text = "(" + low + " AND " + compared(left, "<=", operand()) + ")";
        } else if (takeWord("IN")) {
            text = membership(left);
        } else if (!isNegated) {
            return simple(left);
        } else {
            throw NotTranslated();
        }
        return isNegated ? "NOT " + text : text;
    }

    std::string nullTest(const Operand& left) {
        const bool isNegated = takeWord("NOT");
        if (!left.isColumn || !takeWord("NULL")) throw NotTranslated();
        return left.text + (isNegated ? " IS NOT NULL" : " IS NULL");
    }

    std::string membership(const Operand& left) {
        if (!takeSign("(")) throw NotTranslated();
        std::string text = "(" + compared(left, "=", operand());
        while (takeSign(","))
            text += " OR " + compared(left, "=", operand());
        if (!takeSign(")")) throw NotTranslated();
        return text + ")";
    }

    std::string simple(const Operand& left) {
        for (const char* const sign : {"<>", "<=", ">=", "=", "<", ">"}) {
            if (takeSign(sign)) return compared(left, sign, operand());
        }
        // A column of truth values is a condition by itself.
        if (left.isColumn && left.kind == ValueClass::Truth) return left.text + " <> 0";
        throw NotTranslated();
    }

    [[nodiscard]] std::string compared(const Operand& left, std::string_view sign,
                                       const Operand& right) const {
        const bool isOrder = sign != "=" && sign != "<>";
        if (left.kind == ValueClass::Text && right.kind == ValueClass::Text) {
            const bool areColumns = left.isColumn && right.isColumn;
            if (isOrder || (areColumns && texts_ == TextColumns::Refused)) throw NotTranslated();
        }
        return "(" + asKind(left, right) + " " + std::string(sign) + " " + asKind(right, left) + ")";
    }

    /// Returns an operand as it is compared with the other one.
    static std::string asKind(const Operand& operand, const Operand& other) {
        if (!operand.isColumn && !other.isColumn) throw NotTranslated();
        const bool areReals = operand.kind == ValueClass::Real && other.kind == ValueClass::Real;
        if (operand.kind == other.kind && !areReals) return operand.text;
        if (operand.isColumn == other.isColumn) throw NotTranslated();
        return operand.isColumn ? operand.text : valueFor(operand, other.kind);
    }

    /// Returns a number as it is compared with a column of another kind.
    static std::string valueFor(const Operand& value, ValueClass column) {
        const std::string& text = value.text;
        const bool isWhole = text.find('.') == std::string::npos;
        if (value.kind != ValueClass::Number) throw NotTranslated();
        // Decimal numbers are stored as texts.
        if (column == ValueClass::Decimal && (isWhole || text[0] != '.')) return quotedName(text, "'");
        // Access compares a fraction with the bits of a single number, which are not stored here.
        if ((column == ValueClass::Real || column == ValueClass::Truth) && isWhole) return text;
        throw NotTranslated();
    }

    Operand operand() {
        skipSpace();
        if (rest_.empty()) throw NotTranslated();
        Operand operand = rest_[0] == '(' ? inBrackets() : plainOperand();
        skipSpace();
        // The operand is part of a longer expression.
        if (!rest_.empty() && std::string_view("+-*/&^\\").find(rest_[0]) != std::string_view::npos)
            throw NotTranslated();
        return operand;
    }

    Operand inBrackets() {
        takeSign("(");
        if (++depth_ > kMaxDepth) throw NotTranslated();
        Operand inner = operand();
        --depth_;
        if (!takeSign(")")) throw NotTranslated();
        return inner;
    }

    Operand plainOperand() {
        const char first = rest_[0];
        if (first == '"' || first == '\'') return textValue(first);
        if (first == '#') return dateValue();
        if (isDigit(static_cast<unsigned char>(first)) || first == '-' || first == '.') return number();
        if (takeWord("TRUE")) return {"-1", ValueClass::Truth};
        if (takeWord("FALSE")) return {"0", ValueClass::Truth};
        return column();
    }

    Operand textValue(char quote) {
        std::string value;
        std::size_t place = 1;
        for (;; ++place) {
            if (place >= rest_.size() || !isAscii(rest_[place])) throw NotTranslated();
            if (rest_[place] == quote) {
                if (rest_.substr(place + 1, 1) != std::string_view(&quote, 1)) break;
                ++place;
            }
            value += rest_[place];
        }
        rest_.remove_prefix(place + 1);
        return {quotedName(value, "'"), ValueClass::Text};
    }

    /// Reads "#month/day/year#".
    Operand dateValue() {
        int month = 0;
        int day = 0;
        int year = 0;
        int length = 0;
        const std::string text(rest_.substr(0, rest_.find('#', 1) + 1));
        const bool isDate = std::sscanf(text.c_str(), "#%2d/%2d/%4d#%n", &month, &day, &year, &length) == 3 &&
                            static_cast<std::size_t>(length) == text.size() && length > 0;
        constexpr int kFirstYear = 1900;
        if (!isDate || month < 1 || month > 12 || day < 1 || day > 31 || year < kFirstYear)
            throw NotTranslated();
        rest_.remove_prefix(text.size());
        std::array<char, 40> iso{};
        std::snprintf(iso.data(), iso.size(), "'%04d-%02d-%02d'", year, month, day);
        return {iso.data(), ValueClass::Date};
    }

    Operand number() {
        std::size_t end = rest_[0] == '-' ? 1 : 0;
        const std::size_t first = end;
        while (end < rest_.size() && (isDigit(static_cast<unsigned char>(rest_[end])) || rest_[end] == '.'))
            ++end;
        const std::string text(rest_.substr(0, end));
        const bool isNumber =
            end > first && std::ranges::count(text, '.') <= 1 && text != "." && text != "-.";
        const std::string_view following = rest_.substr(end, 1);
        const bool goesOn = !following.empty() && std::isalpha(static_cast<unsigned char>(following[0])) != 0;
        if (!isNumber || goesOn) throw NotTranslated();
        rest_.remove_prefix(end);
        return {text, ValueClass::Number};
    }

    Operand column() {
        ColumnName name;
        std::optional<std::string> part = takeName(rest_);
        if (!part) throw NotTranslated();
        name.column = *part;
        if (rest_.starts_with('.') || rest_.starts_with('!')) {
            rest_.remove_prefix(1);
            part = takeName(rest_);
            if (!part) throw NotTranslated();
            name.source = std::exchange(name.column, *part);
        }
        // A function or a longer name.
        if (!rest_.empty() && std::string_view("(.!").find(rest_[0]) != std::string_view::npos)
            throw NotTranslated();
        const std::optional<StatementColumn> found = find_(name);
        if (!found) throw NotTranslated();
        return {found->text, classOf(found->type), true};
    }

    static constexpr int kMaxDepth = 100;

    std::string_view rest_;
    const ColumnFinder& find_;
    TextColumns texts_;
    int depth_ = 0;
};

}  // namespace

StatementColumn comparedColumn(const StatementColumn& column) {
    if (column.type == ColumnType::Boolean) return {"-" + column.text, column.type};
    if (column.type != ColumnType::DateAndTime) return column;
    // A time alone is stored as "09:30:00".
    const std::string isTime = "length(" + column.text + ") = 8";
    return {"iif(" + isTime + ", '1899-12-30T' || " + column.text + ", " + column.text + ")", column.type};
}

std::optional<std::string> translateCondition(std::string_view condition, const ColumnFinder& find,
                                              TextColumns texts) {
    try {
        return Translator(condition, find, texts).translate();
    } catch (const NotTranslated&) {
        return std::nullopt;
    }
}

}  // namespace mergeloom::describe
