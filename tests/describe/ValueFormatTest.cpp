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
        // Those that are not understood, or depend on other settings.
        {"2024-05-04", ColumnType::Date, "ww", "04/05/2024"},
        {"2024-05-04", ColumnType::Date, "d\"m", "04/05/2024"},
        {"2024-05-04", ColumnType::Date, "d\\", "04/05/2024"},
        {"2024-05-04", ColumnType::Date, "Long Date", "04/05/2024"},
        {"true", ColumnType::Boolean, "True/False", "True"},
        {"0", ColumnType::Boolean, "on/off", "Off"},
        {"1", ColumnType::Boolean, ";\"paid\"", "Yes"},
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
