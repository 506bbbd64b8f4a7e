#include "base/AutomationError.h"
#include "describe/ReaderPipe.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace mergeloom::describe {
namespace {

using namespace std::string_view_literals;

/// A pipe with the written bytes and no writer, so its reader finds an end after them.
class FullPipe {
  public:
    explicit FullPipe(const std::function<void(PipeWriter&)>& write) {
        EXPECT_EQ(::pipe(ends_.data()), 0);
        PipeWriter writer(ends_[1]);
        write(writer);
        writer.flush();
        ::close(ends_[1]);
    }
    FullPipe(const FullPipe&) = delete;
    FullPipe& operator=(const FullPipe&) = delete;
    ~FullPipe() { ::close(ends_[0]); }

    PipeReader reader() const { return PipeReader(ends_[0]); }

  private:
    std::array<int, 2> ends_{};
};

TEST(ReaderPipe, BringsTablesAndValues) {
    Table table{TableKind::View, "Orders"};
    table.columns.push_back({"Total", "Sum & more", ColumnType::Decimal, 2});
    table.keys = {{"a", "b"}, {"c"}};
    table.foreignKeys.push_back({{"x"}, "Towns", {"y"}});
    table.definition = ViewDefinition{{{"Trips", "t"}},
                                      {{"t", "Total"}},
                                      ViewDefinition::Joining::Left,
                                      {"t.a=b.c"},
                                      {"t.a>1", "t.b>2"},
                                      {{"t.a", true}},
                                      true};
    const Value values[] = {{},
                            {Value::Kind::Integer, -7},
                            {Value::Kind::Real, 0, 0.5},
                            {Value::Kind::Text, 0, 0, "é"},
                            {Value::Kind::Bytes, 0, 0, std::string_view("\0x", 2)}};
    const FullPipe pipe([&](PipeWriter& writer) {
        writer.message(Message::Table);
        writer.table(table);
        for (const Value& value : values)
            writer.value(value);
    });
    PipeReader reader = pipe.reader();
    EXPECT_EQ(reader.message(), Message::Table);
    const Table read = reader.table();
    EXPECT_EQ(read.kind, TableKind::View);
    EXPECT_EQ(read.name, "Orders");
    ASSERT_EQ(read.columns.size(), 1U);
    EXPECT_EQ(read.columns[0].caption, "Sum & more");
    EXPECT_EQ(read.columns[0].type, ColumnType::Decimal);
    EXPECT_EQ(read.columns[0].decimals, 2);
    EXPECT_EQ(read.keys, table.keys);
    ASSERT_TRUE(read.definition);
    EXPECT_EQ(read.definition->sources.at(0).name, "t");
    EXPECT_EQ(read.definition->outputs.at(0).column, "Total");
    EXPECT_EQ(read.definition->joining, ViewDefinition::Joining::Left);
    EXPECT_EQ(read.definition->joins, table.definition->joins);
    EXPECT_EQ(read.definition->conditions, table.definition->conditions);
    EXPECT_TRUE(read.definition->orders.at(0).isDescending);
    EXPECT_TRUE(read.definition->isDistinct);
    ASSERT_EQ(read.foreignKeys.size(), 1U);
    EXPECT_EQ(read.foreignKeys[0].referredColumns, std::vector<std::string>{"y"});
    std::string text;
    for (const Value& value : values)
        EXPECT_EQ(reader.value(text), value);
}

TEST(ReaderPipe, BringsForms) {
    StoredForm form{"Order", "Orders"};
    StoredControl& town = form.controls.emplace_back();
    town = {ControlType::Combobox, "Town", "&Town:", "TownId", FormSection::PageFooter, "dd.mm"};
    town.list = {"Towns", 2, "0;1440"};
    StoredControl lines{ControlType::Subform, "Lines"};
    lines.shownObject = "Form.Lines";
    lines.childFields = {"a", "b"};
    lines.masterFields = {"c", "d"};
    form.controls.push_back(lines);
    const FullPipe pipe([&](PipeWriter& writer) { writer.form(form); });
    const StoredForm read = pipe.reader().form();
    EXPECT_EQ(read.name, "Order");
    EXPECT_EQ(read.source, "Orders");
    ASSERT_EQ(read.controls.size(), 2U);
    EXPECT_EQ(read.controls[0].type, ControlType::Combobox);
    EXPECT_EQ(read.controls[0].caption, "&Town:");
    EXPECT_EQ(read.controls[0].source, "TownId");
    EXPECT_EQ(read.controls[0].section, FormSection::PageFooter);
    EXPECT_EQ(read.controls[0].format, "dd.mm");
    EXPECT_EQ(read.controls[0].list.rows, "Towns");
    EXPECT_EQ(read.controls[0].list.boundColumn, 2);
    EXPECT_EQ(read.controls[0].list.widths, "0;1440");
    EXPECT_EQ(read.controls[1].shownObject, "Form.Lines");
    EXPECT_EQ(read.controls[1].childFields, form.controls[1].childFields);
    EXPECT_EQ(read.controls[1].masterFields, form.controls[1].masterFields);
}

TEST(ReaderPipe, RefusesWhatIsNoMessage) {
    const std::function<void(PipeWriter&)> wrong[] = {
        [](PipeWriter&) {},                                                      // ended
        [](PipeWriter& writer) { writer.message(static_cast<Message>(0x7F)); },  // unknown
    };
    for (const auto& write : wrong) {
        const FullPipe pipe(write);
        EXPECT_THROW(pipe.reader().message(), AutomationError);
    }
    // The first text is incomplete, and the second one is longer than any file.
    for (const std::string_view bytes : {"\x05\0\0\0ab"sv, "\xFF\xFF\xFF\x7F"sv}) {
        const FullPipe pipe([bytes](PipeWriter& writer) {
            for (const char byte : bytes)
                writer.message(static_cast<Message>(byte));
        });
        EXPECT_THROW(pipe.reader().text(), AutomationError);
    }
}

}  // namespace
}  // namespace mergeloom::describe
