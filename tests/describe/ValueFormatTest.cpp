#include "describe/DeclaredType.h"
#include "describe/ValueFormat.h"

#include <gtest/gtest.h>

namespace mergeloom::describe {
namespace {

Value integer(std::int64_t number) {
    Value value;
    value.kind = Value::Kind::Integer;
    value.integer = number;
    return value;
}

Value real(double number) {
    Value value;
    value.kind = Value::Kind::Real;
    value.real = number;
    return value;
}

Value text(std::string_view text) {
    Value value;
    value.kind = Value::Kind::Text;
    value.text = text;
    return value;
}

TEST(ValueFormat, ShowsDatesAndBooleansByTheirFormats) {
    const ValueFormat british({".", ",", "%d/%m/%Y", "%H:%M"});
    const std::string longText = '"' + std::string(200, 'x') + '"';
    const struct {
        std::string_view value;
        ColumnType type;
        std::string format, shown;
    } cases[] = {
        {"2024-05-04T09:07:03", ColumnType::DateAndTime, "dd.mm.yyyy", "04.05.2024"},
        {"2024-05-04T09:07:03", ColumnType::DateAndTime, "d/m/yy h:n:s", "4/5/24 9:7:3"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "dddd, D MMMM YYYY", "Saturday, 4 May 2024"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "hh:mm AM/PM", "02:07 PM"},
        {"2024-05-04", ColumnType::DateAndTime, "yyyy-mm-dd hh:mm:ss", "2024-05-04 00:00:00"},
        {"2024-05-04", ColumnType::Date, "\"On 100% the \"d\\.", "On 100% the 4."},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "yyyy-mm-dd\\Thh:nn", "2024-05-04T14:07"},
        {"2024-05-04", ColumnType::Date, "yyyy" + longText, "2024" + longText.substr(1, 200)},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "Medium Date", "04-May-24"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "Short Date", "04/05/2024"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "Short Time", "14:07"},
        {"14:07:03", ColumnType::DateAndTime, "dd.mm.yyyy", "14:07"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "Long Date", "Saturday, 4 May 2024"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "Long Time", "14:07"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "General Date", "04/05/2024 14:07"},
        {"2024-05-04T14:07:03", ColumnType::DateAndTime, "ddddd ttttt", "04/05/2024 14:07"},
        {"2024-05-04", ColumnType::Date, "q/yyyy", "2/2024"},
        {"2024-05-04", ColumnType::Date, "w ww y", "7 18 125"},
        {"2023-01-01", ColumnType::Date, "ww", "1"},
        {"2023-12-31", ColumnType::Date, "ww y", "53 365"},
        {"14:07:03", ColumnType::DateAndTime, "h:nn:ss", "14:07:03"},
        {"14:07:03", ColumnType::DateAndTime, "Short Time", "14:07"},
        // The program does not know these formats and uses the default one.
        {"2024-05-04", ColumnType::Date, "www", "04/05/2024"},
        {"2024-05-04", ColumnType::Date, "d\"m", "04/05/2024"},
        {"2024-05-04", ColumnType::Date, "d\\", "04/05/2024"},
        {"true", ColumnType::Boolean, "True/False", "True"},
        {"0", ColumnType::Boolean, "on/off", "Off"},
        {"1", ColumnType::Boolean, ";\"paid\"", "paid"},
        {"0", ColumnType::Boolean, ";\"paid\"", "No"},
        {"0", ColumnType::Boolean, ";\"paid\";\"open; due\"[Red]", "open; due"},
    };
    for (const auto& [value, type, format, shown] : cases) {
        SCOPED_TRACE(format);
        Column column;
        column.type = type;
        column.format = format;
        ValueText written;
        british.write(text(value), column, written);
        EXPECT_EQ(written.shown, shown);
    }
}

TEST(ValueFormat, WritesLongDatesInTheOrderOfTheLocale) {
    Column column;
    column.type = ColumnType::Date;
    column.format = "Long Date";
    const struct {
        std::string date, longDate, shown;
    } cases[] = {
        {"%d/%m/%Y", "", "Saturday, 4 May 2024"},  {"%m/%d/%Y", "", "Saturday, May 4, 2024"},
        {"%d.%m.%Y", "", "Saturday, 4. May 2024"}, {"", "", "Saturday, 4 May 2024"},
        {"%d.%m.%Y", "%B %d", "May 04"},
    };
    for (const auto& [date, longDate, shown] : cases) {
        Conventions conventions;
        conventions.date = date;
        conventions.longDate = longDate;
        ValueText written;
        ValueFormat(conventions).write(text("2024-05-04"), column, written);
        EXPECT_EQ(written.shown, shown);
    }
}

TEST(ValueFormat, ShowsNumbersByTheirFormats) {
    Conventions american{".", ",", "%m/%d/%Y", "%r"};
    american.currency = "$";
    Conventions german{",", ".", "%d.%m.%Y", "%H:%M:%S"};
    german.currency = "€";
    german.isCurrencyFirst = false;
    german.isCurrencySpaced = true;
    const Conventions plain;
    const struct {
        const Conventions& conventions;
        std::string_view number;
        std::string format;
        std::optional<int> decimals;
        std::string shown;
    } cases[] = {
        {american, "1234.5", "Currency", {}, "$1,234.50"},
        {american, "-1234.5", "Currency", 0, "-$1,235"},
        {american, "1234.5", "Euro", {}, "€1,234.50"},
        {german, "-1234.5", "Currency", {}, "-1.234,50 €"},
        {german, "1234.5", "currency", 3, "1.234,500 €"},
        {plain, "1234.5", "Currency", {}, "1,234.50"},
        {german, "1234.5", "Fixed", {}, "1234,50"},
        {german, "0.5", "Fixed", 0, "1"},
        {german, "1234567.891", "Standard", {}, "1.234.567,89"},
        {plain, "999.995", "Standard", {}, "1,000.00"},
        {german, "0.19", "Percent", {}, "19,00%"},
        {american, "0.195", "Percent", 0, "20%"},
        {american, "12345678", "Scientific", {}, "1.23E+07"},
        {german, "-0.00012345", "Scientific", 3, "-1,235E-04"},
        {american, "9.999", "Scientific", {}, "1.00E+01"},
        {american, "0", "Scientific", {}, "0.00E+00"},
        {german, "1234.5000", "General Number", {}, "1234,5"},
        {german, "100", "General Number", {}, "100"},
        {american, "1234.5", "#,##0.00;[Red]-#,##0.00", {}, "1,234.50"},
        {german, "-1234.5", "#,##0.00;[Red]-#,##0.00", {}, "-1.234,50"},
        {american, "-1234.5", "$#,##0.00;($#,##0.00)", {}, "($1,234.50)"},
        {german, "-1234.5", "#,##0.00 €;;\"nothing\"", {}, "-1.234,50 €"},
        {german, "0", "#,##0.00 €;;\"nothing\"", {}, "nothing"},
        {german, "0.00", "0.00", {}, "0,00"},
        {german, "-0.004", "0.00", {}, "0,00"},
        {american, "0.5", "#.##", {}, ".5"},
        {american, "12.345", "#.##", {}, "12.35"},
        {american, "7", "000", {}, "007"},
        {american, "12345", "000", {}, "12345"},
        {american, "123456789", "000-00-0000", {}, "123-45-6789"},
        {american, "1234567", "#,##0,\"K\"", {}, "1,235K"},
        {american, "1234567", "0,,.0\\M", {}, "1.2M"},
        {american, "5", "\"no. \"0", {}, "no. 5"},
        {american, "12345678901234567890.125", "#,##0.00", {}, "12,345,678,901,234,567,890.13"},
        {american, "1e3", "0.0", {}, "1000.0"},
        // The program does not know these formats and uses the default one.
        {german, "1234.5", "yyyy", {}, "1234,5"},
        {german, "1234.5", "0\"", {}, "1234,5"},
        {german, "1234.5", "[Pale]0", {}, "1234,5"},
    };
    for (const auto& [conventions, number, format, decimals, shown] : cases) {
        SCOPED_TRACE(testing::Message() << format << " of " << number);
        Column column;
        column.type = ColumnType::Real;
        column.format = format;
        column.formatDecimals = decimals;
        ValueText written;
        ValueFormat(conventions).write(text(number), column, written);
        EXPECT_EQ(written.shown, shown);
        EXPECT_EQ(written.stored, number);
    }
}

TEST(ValueFormat, ShowsTextsByTheirFormats) {
    const ValueFormat plain(Conventions{});
    const struct {
        std::string_view text;
        std::string format, shown;
    } cases[] = {
        {"Gull", ">", "GULL"},
        {"Gull", "<", "gull"},
        {"123456789", "@@@-@@@@", "12345-6789"},
        {"123456789", "!@@@-@@@@", "123-456789"},
        {"12", "@@@@", "  12"},
        {"12", "&&&&", "12"},
        {"12", "!@@@@", "12  "},
        {"ab12", ">@@\" no. \"@@", "AB no. 12"},
        {"", "@;\"unknown\"", "unknown"},
        {"Gull", "@;\"unknown\"", "Gull"},
        {"Gull", "wild", "Gull"},
    };
    for (const auto& [value, format, shown] : cases) {
        SCOPED_TRACE(format);
        Column column;
        column.type = ColumnType::Text;
        column.format = format;
        ValueText written;
        plain.write(text(value), column, written);
        EXPECT_EQ(written.shown, shown);
        EXPECT_EQ(written.stored, value);
    }
}

TEST(ValueFormat, ShowsMissingValuesByTheirFormats) {
    const ValueFormat plain(Conventions{});
    const struct {
        ColumnType type;
        std::string format, shown;
    } cases[] = {
        {ColumnType::Decimal, "0.00;;;\"none\"", "none"},
        {ColumnType::Decimal, "0.00", ""},
        {ColumnType::Text, "@;\"unknown\"", "unknown"},
        {ColumnType::Date, "yyyy;\"never\"", ""},
    };
    for (const auto& [type, format, shown] : cases) {
        SCOPED_TRACE(format);
        Column column;
        column.type = type;
        column.format = format;
        ValueText written{"before", "before"};
        plain.write({}, column, written);
        EXPECT_EQ(written.shown, shown);
        EXPECT_EQ(written.stored, "");
    }
}

TEST(ValueFormat, ShowsValuesByTheirTypes) {
    const ValueFormat british({".", ",", "%d/%m/%Y", "%H:%M"});
    const ValueFormat german({",", ".", "%d.%m.%Y", "%H:%M:%S"});
    const ValueFormat plain(Conventions{});
    const struct {
        const ValueFormat& format;
        Value value;
        std::string type, shown, stored;
    } cases[] = {
        {british, integer(1234567), "INTEGER", "1234567", "1234567"},
        {british, integer(-1234567), "DECIMAL(9, 2)", "-1,234,567.00", "-1234567"},
        {german, real(-999.5), "DECIMAL(9,2)", "-999,50", "-999.5"},
        {german, real(1234.5), "MONEY", "1.234,50", "1234.5"},
        {german, real(0.1), "DOUBLE", "0,1", "0.1"},
        {plain, real(1e21), "REAL", "1000000000000000000000", "1000000000000000000000"},
        {german, text("12345678901234567.89"), "NUMERIC(20,2)", "12.345.678.901.234.567,89",
         "12345678901234567.89"},
        {german, text("dear"), "DECIMAL(9,2)", "dear", "dear"},
        {british, text("2024-02-29"), "DATE", "29/02/2024", "2024-02-29"},
        {british, text("2023-02-29"), "DATE", "2023-02-29", "2023-02-29"},
        {british, text("2024-05-14 09:30"), "DATETIME", "14/05/2024 09:30", "2024-05-14T09:30:00"},
        {german, text("2024-05-14T09:30:05.25+02:00"), "TIMESTAMP", "14.05.2024 09:30:05 +02:00",
         "2024-05-14T09:30:05.25+02:00"},
        {british, text("23:59"), "TIME", "23:59", "23:59:00"},
        {british, text("24:00"), "TIME", "24:00", "24:00"},
        {british, text("23:59:60"), "TIME", "23:59:60", "23:59:60"},
        {plain, text("2024-05-14 09:30:00"), "DATETIME", "2024-05-14 09:30:00", "2024-05-14T09:30:00"},
        {plain, text("2024-05-14 late"), "DATETIME", "2024-05-14 late", "2024-05-14 late"},
        {plain, text("f"), "BOOLEAN", "No", "false"},
        {plain, integer(-1), "BOOL", "Yes", "true"},
        {plain, text("perhaps"), "BOOLEAN", "perhaps", "perhaps"},
        {british, text("1,5"), "VARCHAR(9)", "1,5", "1,5"},
        {british, {}, "DATE", "", ""},
    };
    for (const auto& [format, value, type, shown, stored] : cases) {
        SCOPED_TRACE(testing::Message() << type << " " << shown);
        const DeclaredType declared = declaredType(type);
        ValueText written{"before", "before"};
        format.write(value, {"column", {}, declared.type, declared.decimals}, written);
        EXPECT_EQ(written.shown, shown);
        EXPECT_EQ(written.stored, stored);
    }
}

}  // namespace
}  // namespace mergeloom::describe
