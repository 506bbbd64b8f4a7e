#!/usr/bin/env python3
"""Selects the records of select queries that files of Access define; the tests write these files.

MERGELOOM names the program, beside which mergeloom-describe lies.
"""
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from access_file import ACE14, BOOLEAN, DATE, DOUBLE, LONG, MONEY, OLE, TEXT, AccessFile, Column
from access_forms import BOX, DETAIL, control, section, streams, subform
from program_test import PROGRAM, ProgramTest

DESCRIBE = Path(PROGRAM).with_name("mergeloom-describe")

# The kinds of rows in a definition: attribute, flag, two names and an expression.
DISTINCT, TOP = (3, 2, None, None, None), (3, 16, "5", None, None)
PARAMETER, GROUP, HAVING = (2, 4, "n", None, None), (9, 0, None, None, "Id"), (10, 0, None, None, "Id>1")
INNER, LEFT, RIGHT = 1, 2, 3
GIF = bytes.fromhex("47494638396101000100800000000000ffffff21f90401000000002c000000000100010000020144003b")


def source(table, alias=None):
    return (5, None, table, alias, None)


def output(expression, name=None):
    return (6, 0, name, None, expression)


def join(kind, left, right, condition):
    return (7, kind, left, right, condition)


def where(condition):
    return (8, None, None, None, condition)


def order(expression, descending=False):
    return (11, None, "D" if descending else None, None, expression)


class DescribeQueries(ProgramTest):
    def run_query(self, *definition):
        file = AccessFile(ACE14)
        file.add_table("Trips", [Column("Id", LONG), Column("Town", LONG), Column("Boat", TEXT), Column("Paid", BOOLEAN),
                                 Column("Day", DATE), Column("Price", MONEY), Column("Weight", DOUBLE),
                                 Column("Max", LONG)],
                       [(1, 2, "Ida", True, 36526.0, 25000, 1.5, 1), (2, 1, "Per", False, 36527.25, 100000, 2.0, 9),
                        (3, None, None, False, 0.9, None, None, 3), (4, 2, "ida", True, 36528.0, 99999, -4.0, 2)],
                       keys=[[0]])
        file.add_table("Towns", [Column("Id", LONG), Column("Name", TEXT)], [(1, "Bosham"), (2, "Malmö"), (3, "Ystad")],
                       keys=[[0]])
        file.add_query("Chosen", list(definition))
        file.add_form("Chosen trips", streams("Chosen", section(DETAIL, control(BOX, "Number", "Id"))))
        file.save(self.folder / "made.accdb")
        return subprocess.run([DESCRIBE, self.folder / "made.accdb", "--object", "Query Chosen", "--records", "all"],
                              capture_output=True, text=True, check=False)

    def records(self, *definition):
        ended = self.run_query(*definition)
        self.assertEqual(ended.returncode, 0, ended.stderr)
        records = ElementTree.fromstring(ended.stdout).findall("Data/Records/Record")
        return [tuple(control.findtext("DisplayValue") for control in record) for record in records]

    def test_conditions(self):
        cases = (
            ("[Trips].[Id]>2", "34"), ("((Trips.Id)<>2)", "134"), ("2>=Id", "12"),
            ("Id=-1 Or Id=3 And Town Is Null", "3"),
            ("(Id=1 Or Id=3) And Town Is Null", "3"), ("Not (Id>1)", "1"), ("Town Is Not Null", "124"),
            ("(((Trips.Boat)=\"ida\"))", "14"), ("Boat<>'Per'", "14"), ("Boat In (\"Per\", \"none\")", "2"),
            ("Not Boat=\"Per\"", "14"), ("Paid", "14"), ("Paid=True", "14"), ("Paid=0", "23"),
            ("Paid<>-1", "23"), ("Not Paid", "23"), ("Paid<0", "14"), ("Paid>True", "23"), ("Paid<>1", "1234"),
            ("Id Between 2 And 3 And Paid=False", "23"), ("Id Not Between 2 And 3", "14"), ("Id Not In (1,2)", "34"),
            ("Day>=#1/2/2000#", "24"), ("Day=#01/01/2000#", "1"), ("Day<#1/1/2000#", "3"), ("[Price]>=10", "2"), ("Price<9.99995", "14"),
            ("Price=2.5", "1"), ("Weight<0", "4"), ("Weight=2", "2"), ("Id>[Max]", "4"),
            ("Chosen.Id>Max Or Trips!Id=1", None),
            ("Trips!Id=1", "1"), ("Id=1 Or\r\nId=2", "12"), ("nOt iD=1 aNd ID<3", "2"),
            (" Or ".join(["((Trips.Id)=2)"] * 120), "2"),
        )
        for condition, ids in cases:
            with self.subTest(condition=condition):
                definition = source("Trips"), output("Trips.Id"), where(condition)
                if ids is None:
                    self.assertEqual(self.run_query(*definition).returncode, 1)
                else:
                    self.assertEqual("".join(row[0] for row in self.records(*definition)), ids)

    def test_what_may_be_selected_otherwise_by_access_is_refused(self):
        simple = source("Trips"), output("Trips.Id")
        cases = [(*simple, where(condition)) for condition in (
            "Boat>\"A\"", "Boat=\"Malmö\"", "Boat Like \"I*\"", "Id+1=2", "(Id+1)=2", "Left([Boat],1)=\"I\"",
            "Id=[Which?]",
            "Weight=1.5", "Id=\"1\"", "Boat=1", "Day=1", "Day=#13/1/2000#", "Day=#2000-01-01#", "Town=1 Xor Id=1",
            "Id=", "(Id=1",
            "Id=1)", "Forms!Main!Id=1", "Boat=Boat", "Id=1 Or", "1=1", "Null=Id", "Id=1E3", "")]
        cases += [(*simple, TOP), (*simple, PARAMETER), (*simple, GROUP), (*simple, GROUP, HAVING),
                  (*simple, (4, None, "x", None, None)),
                  (source("Trips"), output("Id+1", "Next")), (source("Trips"), output("Count(Id)", "Many")),
                  (*simple, order("Id+1")),
                  (source("Trips"), source("Towns"), source("Trips", "t"), output("Trips.Boat"),
                   join(LEFT, "Trips", "Towns", "Trips.Town=Towns.Id"), join(INNER, "Trips", "t", "Trips.Id=t.Id"))]
        for definition in cases:
            with self.subTest(definition=definition[2:]):
                ended = self.run_query(*definition)
                self.assertEqual((ended.returncode, ended.stdout), (1, ""))
                self.assertIn(f"The records of the query 'Chosen' in '{self.folder}/made.accdb' can be read ", ended.stderr)

    def test_joins(self):
        sources = source("Trips", "t"), source("Towns")
        shown = output("t.Id"), output("Towns.Name")
        condition = "[t].[Town]=[Towns].[Id]"
        cases = (
            (INNER, [("1", "Malmö"), ("2", "Bosham"), ("4", "Malmö")]),
            (LEFT, [("1", "Malmö"), ("2", "Bosham"), ("3", ""), ("4", "Malmö")]),
            (RIGHT, [("", "Ystad"), ("1", "Malmö"), ("2", "Bosham"), ("4", "Malmö")]),
        )
        for kind, rows in cases:
            for first, second in (sources, sources[::-1]):
                with self.subTest(kind=kind, first=first):
                    found = self.records(first, second, *shown, join(kind, "t", "Towns", condition))
                    self.assertEqual(sorted((a or "", b or "") for a, b in found), rows)
        rows = self.records(*sources, *shown, join(LEFT, "t", "Towns", condition), where("Towns.Id Is Null"))
        self.assertEqual(rows, [("3", "")])
        self.assertEqual(len(self.records(*sources, *shown)), 12)

    def test_order_and_distinct_rows(self):
        rows = self.records(source("Trips"), output("Boat"), output("Id"), order("Trips.Boat", True), order("[Id]"))
        self.assertEqual(rows, [("Per", "2"), ("Ida", "1"), ("ida", "4"), ("", "3")])
        rows = self.records(source("Trips"), output("Id"), order("Price"))
        self.assertEqual([row[0] for row in rows], ["3", "1", "4", "2"])
        for column, ids in (("Paid", "1423"), ("Day", "3124")):
            rows = self.records(source("Trips"), output("Id"), order(column), order("Id"))
            self.assertEqual("".join(row[0] for row in rows), ids, column)
        self.assertEqual(sorted(self.records(source("Trips"), output("Town"), DISTINCT)), [("",), ("1",), ("2",)])

    def describe(self, file, *arguments):
        file.save(self.folder / "made.accdb")
        return subprocess.run([DESCRIBE, self.folder / "made.accdb", *arguments], capture_output=True, text=True,
                              check=False)

    def test_queries_over_queries(self):
        file = AccessFile(ACE14)
        file.add_table("Trips", [Column("Id", LONG), Column("Town", LONG), Column("Boat", TEXT), Column("Photo", OLE)],
                       [(1, 2, "Ida", GIF), (2, 1, "Per", None), (3, 2, "Ash", None), (4, 2, "Elm", None)], keys=[[0]])
        file.add_table("Towns", [Column("Id", LONG), Column("Name", TEXT)], [(1, "Bosham"), (2, "Malmö")], keys=[[0]])
        # The catalog does not list them in the order of their dependencies.
        file.add_query("Named", [source("Late", "l"), source("Towns"), output("l.Number"), output("Towns.Name", "Port"),
                                 output("l.Photo"), join(INNER, "l", "Towns", "l.Town=Towns.Id"), order("Number", True)])
        file.add_query("Late", [source("Far"), output("Far.Id", "Number"), output("Town"), output("Photo"),
                                where("Far.Id>1")])
        file.add_query("Far", [source("Trips"), output("Trips.*"), where("Town=2")])
        file.add_query("Counted", [source("Far"), output("Count(Id)", "Many")])
        file.add_query("Over counted", [source("Counted"), output("Many")])
        file.add_query("Round", [source("Way"), output("Id")])
        file.add_query("Way", [source("Round"), output("Id")])
        deep = [f"Deep {number}" for number in range(60)]
        for number, name in enumerate(deep):
            file.add_query(name, [source(deep[number - 1] if number else "Far"), output("Id")])
        ended = self.describe(file, "--object", "Named", "--records", "all", "--output", self.folder / "named.xml")
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        records = ElementTree.parse(self.folder / "named.xml").findall("Data/Records/Record")
        self.assertEqual([[control.findtext("DisplayValue") for control in record][:2] for record in records],
                         [["4", "Malmö"], ["3", "Malmö"]])
        self.assertTrue(list((self.folder / "named-pictures").iterdir()))
        for name in ("Over counted", "Round", "Way", "Deep 59"):
            ended = self.describe(file, "--object", name, "--records", "all")
            self.assertEqual((ended.returncode, ended.stdout), (1, ""))
            self.assertIn(f"The records of the query '{name}' in ", ended.stderr)
        self.assertEqual(self.describe(file, "--object", "Deep 40", "--records", "all").stdout.count("<Record>"), 3)

    def test_queries_that_show_pictures(self):
        file = AccessFile(ACE14)
        file.add_table("Boats", [Column("Id", LONG), Column("Photo", OLE)], [(1, None), (2, GIF)], keys=[[0]])
        file.add_query("Shown", [source("Boats", "b"), output("b.Photo", "Picture"), output("Id")])
        file.add_query("Grouped", [source("Boats"), output("Photo"), output("Id"), GROUP])
        target = self.folder / "made.xml"
        ended = self.describe(file, "--output", target)
        self.assertEqual((ended.returncode, ended.stderr), (0, "mergeloom-describe: The column 'Photo' of 'Grouped' is "
                                                               "left out: its query can be run by Access only.\n"))
        structure = ElementTree.parse(target).find("Structure")
        self.assertEqual({query.get("Name"): [(control.get("Name"), control.get("ControlType"))
                                              for control in query.iter("Control")] for query in structure.findall("Query")},
                         {"Shown": [("Picture", "BoundObjectFrame"), ("Id", "Textbox")], "Grouped": [("Id", "Textbox")]})
        ended = self.describe(file, "--output", target, "--object", "Shown", "--records", "all")
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        self.assertEqual(len(ElementTree.parse(target).findall("Data/Records/Record")), 2)
        pictures = [path.read_bytes() for path in (self.folder / "made-pictures").iterdir()]
        self.assertEqual(set(pictures), {GIF})

    def test_columns_of_queries_that_are_later_in_the_catalog(self):
        file = AccessFile(ACE14)
        file.add_table("Trips", [Column("Id", LONG), Column("Paid", BOOLEAN)], [], keys=[[0]])
        file.add_query("First", [source("Second"), output("Second.Paid")])
        file.add_query("Second", [source("Third"), output("Paid")])
        file.add_query("Third", [source("Trips"), output("Trips.*")])
        file.add_query("Round", [source("Way"), output("Way.Paid", "Paid"), source("Trips"), output("Trips.Id")])
        file.add_query("Way", [source("round"), output("Round.Id")])
        file.add_query("Lost", [source("Nothing"), output("*")])
        file.add_query("After", [source("Lost"), output("Id")])
        ended = self.describe(file)
        self.assertEqual(ended.stderr, "mergeloom-describe: The query 'Lost' is left out: it shows the columns of a table "
                                       "that is not described.\n")
        queries = {query.get("Name"): [(control.get("Name"), control.get("ControlType"))
                                       for control in query.iter("Control")]
                   for query in ElementTree.fromstring(ended.stdout).findall("Structure/Query")}
        paid = ("Paid", "Checkbox")
        self.assertEqual({name: queries[name] for name in ("First", "Second", "Third")},
                         {"First": [paid], "Second": [paid], "Third": [("Id", "Textbox"), paid]})
        self.assertEqual([set(queries[name]) for name in ("Round", "Way", "After")],
                         [{("Paid", "Textbox"), ("Id", "Textbox")}, {("Id", "Textbox")}, {("Id", "Textbox")}])

    def test_names_that_a_column_shares_with_an_expression(self):
        file = AccessFile(ACE14)
        file.add_table("Trips", [Column("Id", LONG), Column("Boat", TEXT)], [], keys=[[0]])
        file.add_query("Shown", [source("Trips"), output("Trips.Boat"), output("[Boat] & [Id]", "Boat")])
        names = [control.get("Name") for control in
                 ElementTree.fromstring(self.describe(file).stdout).find("Structure/Query").iter("Control")]
        self.assertEqual(names, ["Trips.Boat", "Boat"])

    def test_a_subform_over_a_query_that_cannot_be_read(self):
        file = AccessFile(ACE14)
        file.add_table("Trips", [Column("Id", LONG), Column("Boat", TEXT)], [(1, "Ida")], keys=[[0]])
        file.add_query("Many", [source("Trips"), output("Id"), GROUP])
        file.add_form("Main", streams("Trips", section(DETAIL, control(BOX, "Boat", "Boat"),
                                                       subform("Grouped", "Query.Many", "Id", "Id"),
                                                       subform("Whole", "Table.Trips", "Id", "Id"))))
        ended = self.describe(file, "--object", "Main", "--records", "all")
        self.assertEqual((ended.returncode, ended.stderr),
                         (0, "mergeloom-describe: The subform 'Grouped' of 'Main' is not in the records: the query 'Many' "
                             "can be run by Access only.\n"))
        record = ElementTree.fromstring(ended.stdout).find("Data/Records/Record")
        self.assertEqual([control.get("Name") for control in record], ["Boat", "Whole"])

    def test_records_of_a_form_over_a_query(self):
        self.run_query(source("Trips"), output("Trips.*"), where("Paid"), order("Id", True))
        ended = subprocess.run([DESCRIBE, self.folder / "made.accdb", "--object", "Chosen trips", "--records", "all"],
                               capture_output=True, text=True, check=False)
        self.assertEqual(ended.stderr, "")
        records = ElementTree.fromstring(ended.stdout).findall("Data/Records/Record")
        self.assertEqual([record.findtext("Control[@Name='Number']/DisplayValue") for record in records], ["4", "1"])


if __name__ == "__main__":
    unittest.main()
