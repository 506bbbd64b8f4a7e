#include "describe/DescribeMain.h"
#include "describe/SqliteFile.h"
#include "doubles/TemporaryFolder.h"
#include "xml/StructureDocument.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>
#include <vector>

namespace mergeloom::describe {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A small shop in which each customer has orders and each order has lines.
constexpr const char* kShop = R"(
CREATE TABLE customers (id INTEGER PRIMARY KEY, name VARCHAR(40), trade BOOLEAN);
CREATE TABLE orders (
    number INTEGER PRIMARY KEY, customer INTEGER REFERENCES customers, "Ship & bill" TEXT, ordered DATE,
    freight DECIMAL(8, 2));
CREATE TABLE lines (
    "order" INTEGER REFERENCES orders(number), line INTEGER, article TEXT, PRIMARY KEY ("order", line));
CREATE VIEW late AS SELECT number FROM orders;
INSERT INTO customers VALUES (1, 'Måns & Sons', 1), (2, 'Ash', 0), (3, NULL, NULL);
INSERT INTO orders VALUES (12, 3, 'c', 'soon', 1.005), (10, 1, 'a', '2024-05-14', 1234.5), (11, 9, 'b', NULL, NULL);
INSERT INTO lines VALUES (11, 1, 'rope'), (10, 2, 'cleat'), (10, 1, 'plank');
)";

struct Outcome {
    int status = 0;
    std::string output{};
    std::string errors{};
};

class DescribeMain : public testing::Test {
  protected:
    static Outcome run(const std::vector<std::string>& arguments) {
        std::ostringstream output;
        std::ostringstream errors;
        const int status = Main(arguments, {output, errors});
        return {status, output.str(), errors.str()};
    }
    std::string make(const std::string& statements) {
        const std::string path = folder_ / "shop.db";
        std::filesystem::remove(path);
        makeDatabase(path, statements);
        return path;
    }

    TemporaryFolder folder_;
};

TEST_F(DescribeMain, ListsFormsTablesAndQueries) {
    const Outcome outcome = run({make(kShop), "--list"});
    EXPECT_EQ(outcome.output,
              "Form customers\nForm orders\nTable customers\nTable orders\nTable lines\nQuery late\n");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(DescribeMain, NestsRecordsInSubforms) {
    const Outcome outcome = run({make(kShop), "--object", "customers", "--records", "all"});
    const std::string data = outcome.output.substr(outcome.output.find("<Data>"));
    EXPECT_EQ(
        data,
        R"(<Data><Records>
<Record><Control Name="id"><DisplayValue>1</DisplayValue></Control>)"
        R"(<Control Name="name"><DisplayValue>Måns &amp; Sons</DisplayValue></Control>)"
        R"(<Control Name="trade"><DisplayValue>Yes</DisplayValue><BoundValue>true</BoundValue></Control>)"
        R"(<Control Name="orders"><Records><Record>)"
        R"(<Control Name="number"><DisplayValue>10</DisplayValue></Control>)"
        R"(<Control Name="Ship &amp; bill"><DisplayValue>a</DisplayValue></Control>)"
        R"(<Control Name="ordered"><DisplayValue>2024-05-14</DisplayValue>)"
        R"(<BoundValue>2024-05-14</BoundValue></Control>)"
        R"(<Control Name="freight"><DisplayValue>1234.50</DisplayValue>)"
        R"(<BoundValue>1234.5</BoundValue></Control>)"
        R"(<Control Name="lines"><Records><Record>)"
        R"(<Control Name="line"><DisplayValue>1</DisplayValue></Control>)"
        R"(<Control Name="article"><DisplayValue>plank</DisplayValue></Control></Record>
<Record><Control Name="line"><DisplayValue>2</DisplayValue></Control>)"
        R"(<Control Name="article"><DisplayValue>cleat</DisplayValue></Control></Record>
</Records></Control></Record>
</Records></Control></Record>
<Record><Control Name="id"><DisplayValue>2</DisplayValue></Control>)"
        R"(<Control Name="name"><DisplayValue>Ash</DisplayValue></Control>)"
        R"(<Control Name="trade"><DisplayValue>No</DisplayValue><BoundValue>false</BoundValue></Control>)"
        R"(<Control Name="orders"><Records></Records></Control></Record>
<Record><Control Name="id"><DisplayValue>3</DisplayValue></Control>)"
        R"(<Control Name="name"><DisplayValue></DisplayValue></Control>)"
        R"(<Control Name="trade"><DisplayValue></DisplayValue></Control>)"
        R"(<Control Name="orders"><Records><Record>)"
        R"(<Control Name="number"><DisplayValue>12</DisplayValue></Control>)"
        R"(<Control Name="Ship &amp; bill"><DisplayValue>c</DisplayValue></Control>)"
        R"(<Control Name="ordered"><DisplayValue>soon</DisplayValue><BoundValue>soon</BoundValue></Control>)"
        R"(<Control Name="freight"><DisplayValue>1.00</DisplayValue>)"
        R"(<BoundValue>1.005</BoundValue></Control>)"
        R"(<Control Name="lines"><Records></Records></Control></Record>
</Records></Control></Record>
  </Records></Data>
</Database>
)");
}

TEST_F(DescribeMain, ShowsTheNameOfAReferredRow) {
    const Outcome outcome = run({make(kShop), "--object=orders", "--records=all"});
    const auto customer = [](const std::string& shown, const std::string& bound) {
        return HasSubstr("<Control Name=\"customer\"><DisplayValue>" + shown + "</DisplayValue><BoundValue>" +
                         bound + "</BoundValue>");
    };
    // The key is shown for a missing name and for a missing row.
    EXPECT_THAT(outcome.output,
                AllOf(customer("Måns &amp; Sons", "1"), customer("3", "3"), customer("9", "9")));
    EXPECT_THAT(outcome.output,
                HasSubstr(R"(<Control Name="customer" Caption="customer" ControlType="Combobox")"));
    EXPECT_THAT(outcome.output, HasSubstr(R"(Name="Ship &amp; bill" Caption="Ship &amp;&amp; bill")"));
}

TEST_F(DescribeMain, ChoosesRecords) {
    const std::string shop = make(kShop);
    const struct {
        std::string choice;
        std::vector<std::string> numbers;
    } cases[] = {
        {"all", {"10", "11", "12"}}, {"2", {"10", "11"}}, {"NUMBER=11", {"11"}}, {"Ship & bill=c", {"12"}}};
    for (const auto& [choice, numbers] : cases) {
        SCOPED_TRACE(choice);
        const Outcome outcome = run({shop, "--object", "Form orders", "--records", choice});
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        for (const std::string number : {"10", "11", "12"}) {
            const bool isChosen = std::ranges::find(numbers, number) != numbers.end();
            const bool isThere =
                outcome.output.find("<Control Name=\"number\"><DisplayValue>" + number) != std::string::npos;
            EXPECT_EQ(isThere, isChosen) << number;
        }
    }
}

/// Tables with relations to themselves, to each other, twice, by several columns, and to columns that are no
/// key.
TEST_F(DescribeMain, FollowsRelationsOfAllShapes) {
    const std::string path = make(R"(
CREATE TABLE staff (id INTEGER PRIMARY KEY, name TEXT, chief INTEGER REFERENCES staff);
CREATE TABLE a (id INTEGER PRIMARY KEY, b INTEGER REFERENCES b, name TEXT);
CREATE TABLE b (id INTEGER PRIMARY KEY, a INTEGER REFERENCES a, name TEXT);
CREATE TABLE town (id INTEGER PRIMARY KEY, name TEXT, trip TEXT);
CREATE TABLE trip (id INTEGER PRIMARY KEY, start INTEGER REFERENCES town, goal INTEGER REFERENCES Town(ID));
CREATE TABLE pair (x INTEGER, y INTEGER, name TEXT, UNIQUE (x, y));
CREATE TABLE half (id INTEGER PRIMARY KEY, x INTEGER, y INTEGER, FOREIGN KEY (y, x) REFERENCES pair (y, x));
CREATE TABLE loose (name TEXT REFERENCES staff(name), gone INTEGER REFERENCES nowhere);
INSERT INTO staff VALUES (1, 'Ida', NULL), (2, 'Per', 1);
INSERT INTO a VALUES (1, 2, 'A'); INSERT INTO b VALUES (2, 1, 'B');
INSERT INTO town VALUES (1, 'Bosham', 't'), (2, 'Hamble', 'u'); INSERT INTO trip VALUES (7, 1, 2), (8, 2, 2);
INSERT INTO pair VALUES (1, 2, 'p'), (2, 1, 'q'); INSERT INTO half VALUES (5, 2, 1), (6, 1, 2);
)");
    const auto describe = [&](const std::string& object) {
        return run({path, "--object", object, "--records", "all"}).output;
    };
    EXPECT_THAT(describe("staff"),
                AllOf(HasSubstr("<DisplayValue>Ida</DisplayValue><BoundValue>1</BoundValue>"),
                      Not(HasSubstr("Subform"))));
    EXPECT_THAT(describe("a"), AllOf(HasSubstr(R"(<Control Name="b" Caption="b" ControlType="Combobox")"),
                                     HasSubstr(R"(<Control Name="b_a" Caption="b_a" ControlType="Subform")"),
                                     HasSubstr("<DisplayValue>B</DisplayValue><BoundValue>2</BoundValue>")));
    // "trip" is taken by a column, and there are two ways from a town to its trips.
    EXPECT_THAT(describe("town"), AllOf(HasSubstr(R"(Name="trip_start")"), HasSubstr(R"(Name="trip_goal")"),
                                        HasSubstr(R"(<Control Name="trip_goal"><Records></Records>)")));
    EXPECT_THAT(describe("pair"),
                HasSubstr(R"(<DisplayValue>p</DisplayValue></Control><Control Name="half"><Records><Record>)"
                          R"(<Control Name="id"><DisplayValue>6<)"));
    EXPECT_THAT(describe("loose"), HasSubstr(R"(Name="name" Caption="name" ControlType="Textbox")"));
}

TEST_F(DescribeMain, LooksUpAsManyNamesAsAQueryCanJoin) {
    std::string columns;
    for (int number = 0; number < 100; ++number)
        columns += ", c" + std::to_string(number) + " INTEGER REFERENCES towns";
    const Outcome outcome = run({make("CREATE TABLE towns (id INTEGER PRIMARY KEY, name TEXT);"
                                      "INSERT INTO towns VALUES (1, 'Bosham');"
                                      "CREATE TABLE trips (id INTEGER PRIMARY KEY" +
                                      columns + "); INSERT INTO trips (id, c0, c99) VALUES (7, 1, 1);"),
                                 "--object", "trips", "--records", "all"});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.output,
                AllOf(HasSubstr("Name=\"c0\"><DisplayValue>Bosham</DisplayValue><BoundValue>1</BoundValue>"),
                      HasSubstr("Name=\"c99\"><DisplayValue>1</DisplayValue>")));
}

TEST_F(DescribeMain, WritesWhatTheMappingReads) {
    const std::string target = folder_ / "shop.xml";
    ASSERT_EQ(run({make(kShop), "--output", target}).status, 0);
    StructureDocument document;
    document.Load(target);
    EXPECT_THAT(folder_.bytesOf("shop.xml"),
                StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Database"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "shop-pictures"));
}

TEST_F(DescribeMain, WritesPicturesBesideTheDocument) {
    // There are two pictures of one pixel and bytes that are no picture.
    const std::string gif =
        "x'47494638396101000100800000000000ffffff21f90401000000002c000000000100010000020144003b'";
    const std::string path = make(
        "CREATE TABLE parts (id INTEGER PRIMARY KEY, photo BLOB, code BLOB);"
        "INSERT INTO parts VALUES (1, " +
        gif + ", x'0001'), (2, " + gif + ", NULL), (3, NULL, NULL);");
    const std::string target = folder_ / "parts.xml";
    const Outcome outcome = run({path, "--object", "parts", "--records", "all", "--output", target});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.errors,
                HasSubstr("The column 'code' of 'parts' is left out: it holds bytes that are no "
                          "pictures."));
    std::vector<std::string> pictures;
    for (const auto& entry : std::filesystem::directory_iterator(folder_ / "parts-pictures"))
        pictures.push_back("parts-pictures/" + entry.path().filename().string());
    ASSERT_EQ(pictures.size(), 1U);
    const std::string image = "Image=\"" + pictures[0] + "\"/>";
    EXPECT_THAT(
        folder_.bytesOf("parts.xml"),
        AllOf(HasSubstr(image), HasSubstr("</Control><Control Name=\"photo\" " + image + "</Record>\n"),
              HasSubstr("<Control Name=\"photo\"/></Record>")));
    EXPECT_THAT(run({path}).errors, HasSubstr("needs '--output FILE'."));
}

/// SQLite joins at most 64 tables.
TEST_F(DescribeMain, LooksUpNoMoreColumnsThanAStatementCanJoin) {
    std::string columns;
    std::string values;
    for (int number = 1; number <= 70; ++number) {
        columns += ", c" + std::to_string(number) + " INTEGER REFERENCES names";
        values += ", 1";
    }
    const std::string path = make(
        "CREATE TABLE names (id INTEGER PRIMARY KEY, name TEXT); INSERT INTO names VALUES (1, 'Ash');"
        "CREATE TABLE parents (id INTEGER PRIMARY KEY); INSERT INTO parents VALUES (1);"
        "CREATE TABLE wide (id INTEGER PRIMARY KEY, parent INTEGER REFERENCES parents" +
        columns + "); INSERT INTO wide VALUES (1, 1" + values + ");");
    for (const char* const object : {"Table wide", "Form parents"}) {
        const Outcome outcome = run({path, "--object", object, "--records", "all"});
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        std::size_t names = 0;
        for (std::size_t at = 0; (at = outcome.output.find(">Ash<", at)) != std::string::npos; ++at)
            ++names;
        EXPECT_EQ(names, 48U) << object;
    }
}

TEST_F(DescribeMain, ReplacesWhatXmlCannotHold) {
    const std::string path = make(
        "CREATE TABLE \"<t>\" (\"\"\"q\"\"\" TEXT);"
        "INSERT INTO \"<t>\" VALUES ('a' || char(1) || 'b'), (CAST(x'61ff62' AS TEXT)), "
        "('tab' || char(9) || 'line' || char(10)), (char(65534));");
    const Outcome outcome = run({path, "--object", "<t>", "--records", "all"});
    EXPECT_THAT(outcome.output, AllOf(HasSubstr("<Table Name=\"&lt;t&gt;\""),
                                      HasSubstr("Name=\"&quot;q&quot;\""), HasSubstr(">a\uFFFDb<"),
                                      HasSubstr(">tab&#9;line&#10;<"), HasSubstr("<DisplayValue>\uFFFD<")));
    EXPECT_EQ(outcome.errors,
              "mergeloom-describe: Characters that XML cannot hold were replaced by U+FFFD.\n");
}

TEST_F(DescribeMain, RefusesInASentence) {
    const std::string shop = make(kShop);
    const std::string target = folder_ / "there.xml";
    folder_.put("there.xml", "whole");
    folder_.put("empty.db", "");
    folder_.put("text.db", "no database, just a text");
    const std::string bytes = folder_.bytesOf("shop.db");
    folder_.put("cut.db", bytes.substr(0, bytes.size() / 2));
    makeDatabase(folder_ / "bare.db", "CREATE TABLE t (i); DROP TABLE t;");
    const struct {
        std::vector<std::string> arguments;
        std::string sentence;
    } cases[] = {
        {{}, "There is no source to describe."},
        {{shop, shop}, "There is a second source, '" + shop + "'."},
        {{shop, "--objects"}, "Unknown option '--objects'."},
        {{shop, "--records", "-3"}, "Option '--records' takes 'all', a number or 'KEY=VALUE', not '-3'."},
        {{shop, "--records", "all"}, "Option '--records' needs one '--object NAME' whose records are meant."},
        {{shop, "--object", "Orders"},
         "There is no object 'Orders'. There are 'Form customers', 'Form orders'"},
        {{shop, "--object", "orders", "--records", "no=1"},
         "Form orders has no column 'no'. It has 'number', "},
        {{shop, "--object", "orders", "--records", "number=7"},
         "No record of 'orders' has the value '7' in 'number'."},
        {{folder_ / "none.db"}, "The file '" + (folder_ / "none.db") + "' does not exist."},
        {{folder_.path()}, "The file '" + folder_.path() + "' is a folder."},
        {{folder_ / "empty.db"}, "The file '" + (folder_ / "empty.db") + "' is empty."},
        {{folder_ / "text.db"}, "is no database of SQLite or Access, or it is encrypted."},
        {{folder_ / "cut.db"},
         "The database '" + (folder_ / "cut.db") + "' could not be read: it is damaged."},
        {{folder_ / "bare.db"}, "The database '" + (folder_ / "bare.db") + "' has no tables."},
    };
    for (const auto& [arguments, sentence] : cases) {
        SCOPED_TRACE(sentence);
        std::vector<std::string> all = arguments;
        const Outcome toOutput = run(all);
        EXPECT_EQ(toOutput.status, 1);
        EXPECT_EQ(toOutput.output, "");
        EXPECT_THAT(toOutput.errors, AllOf(StartsWith("mergeloom-describe: "), HasSubstr(sentence)));
        all.insert(all.end(), {"--output", target});
        EXPECT_EQ(run(all).status, 1);
        EXPECT_EQ(folder_.bytesOf("there.xml"), "whole");
    }
}

TEST_F(DescribeMain, LeavesOutAViewThatFails) {
    const std::string path =
        make("CREATE TABLE t (i); CREATE VIEW v AS SELECT i FROM t; CREATE VIEW w AS SELECT i FROM gone;");
    const Outcome outcome = run({path, "--list"});
    EXPECT_EQ(outcome.output, "Table t\nQuery v\n");
    EXPECT_THAT(outcome.errors, HasSubstr("The view 'w' is left out: "));
}

}  // namespace
}  // namespace mergeloom::describe
