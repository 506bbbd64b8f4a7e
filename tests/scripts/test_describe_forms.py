#!/usr/bin/env python3
"""Describes the forms and lists that files of Access store; the tests write these files.

MERGELOOM names the program, beside which mergeloom-describe lies.
"""
import random
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import docx

from access_file import ACE14, BOOLEAN, DATE, DOUBLE, JET4, LONG, MONEY, TEXT, AccessFile, Column
from access_forms import (BOX, BUTTON, BYTE, CHECK, COMBO, CONTINUOUS, DATASHEET, DETAIL, FOOTER, FRAME, GROUP, HEADER,
                          LIST, NAME, OPTION, PAGE, PIVOT_TABLE, SINGLE, SPLIT, TAB, TOGGLE, control, label, option,
                          section, streams, subform, text)
from program_test import PROGRAM, ProgramTest

DESCRIBE = Path(PROGRAM).with_name("mergeloom-describe")


def run(*command):
    return subprocess.run([*map(str, command)], capture_output=True, text=True, check=False)


def lines_form():
    return streams("Lines", section(DETAIL, control(BOX, "LineNo", "Id"), control(BOX, "Text", "What", "&What:")))


class DescribeForms(ProgramTest):
    def orders(self, version=ACE14):
        file = AccessFile(version)
        file.add_table("Towns", [Column("Id", LONG), Column("Code", TEXT), Column("Name", TEXT)],
                       [(1, "B", "Bosham"), (2, "M", "Malmö")], keys=[[0]])
        file.add_table("Orders", [Column("Number", LONG), Column("Town", LONG), Column("Paid", BOOLEAN),
                                  Column("Note & more", TEXT)],
                       [(7, 2, True, "first"), (8, None, False, None)], keys=[[0]],
                       captions={"Note & more": "Notes & more"})
        file.add_table("Lines", [Column("Id", LONG), Column("OrderNumber", LONG), Column("What", TEXT)],
                       [(1, 7, "tea"), (2, 7, "rum"), (3, 8, "salt")], keys=[[0]])
        file.add_form("Order", streams(
            "orders",
            section(HEADER, label("Title", "Order"), control(BOX, "Now", "=Date()")),
            section(DETAIL,
                    control(BOX, "No", "Number", "&Number:"),
                    control(COMBO, "Town", "Town", "Town:", widths="0;1440",
                            rows="SELECT Towns.Id, Towns.Name FROM Towns ORDER BY [Name];"),
                    control(CHECK, "Paid", "Paid"),
                    control(TAB, "Pages", children=(control(PAGE, "Page1", children=(
                        control(BOX, "Note", "[Note & more]"),)),)),
                    control(GROUP, "Kind", None, "Kind", children=(control(OPTION, "One"), control(OPTION, "Two"))),
                    control(BUTTON, "Print"),
                    control(LIST, "Letters", None, rows="a;b", values="Value List"),
                    subform("Goods", "Form.Order lines", "OrderNumber", "No", "Goods:")),
            section(FOOTER, control(FRAME, "Photo"))))
        file.add_form("Order lines", lines_form())
        return file

    def describe(self, file, *arguments):
        path = self.folder / "made.accdb"
        file.save(path)
        return run(DESCRIBE, path, *arguments)

    def form(self, text, name):
        return ElementTree.fromstring(text).find(f"Structure/Form[@Name='{name}']")

    def test_controls_sections_and_subforms(self):
        for version in (JET4, ACE14):
            with self.subTest(version=version):
                ended = self.describe(self.orders(version))
                self.assertEqual((ended.returncode, ended.stderr), (0, ""))
                form = self.form(ended.stdout, "Order")
                self.assertEqual(form.get("HasRecordset"), "1")
                shown = {part.get("Name"): [(control.get("Name"), control.get("ControlType"), control.get("Caption"),
                                             control.get("ControlSource"), control.get("Section"))
                                            for control in part.find("Controls")] for part in form.find("Sections")}
                self.assertEqual(shown, {
                    "FormHeader": [("Now", "Textbox", "Now", "=Date()", "1")],
                    "Detail": [("No", "Textbox", "&Number:", "Number", "0"), ("Town", "Combobox", "Town:", "Town", "0"),
                               ("Paid", "Checkbox", "Paid", "Paid", "0"), ("Pages", "TabControl", "Pages", None, "0"),
                               ("Note", "Textbox", "Notes && more", "Note & more", "0"),
                               ("Kind", "OptionGroup", "Kind", None, "0"), ("Letters", "Listbox", "Letters", None, "0"),
                               ("Goods", "Subform", "Goods:", None, "0")],
                    "FormFooter": [("Photo", "BoundObjectFrame", "Photo", None, "2")]})
                inner = form.find("Sections/Section/Controls/Control[@Name='Goods']")[0]
                self.assertEqual((inner.tag, inner.get("Name")), ("Form", "Order lines"))
                self.assertEqual([control.get("Name") for control in inner.iter("Control")], ["LineNo", "Text"])

    def test_views(self):
        cases = {SINGLE: ("1", "0"), CONTINUOUS: ("1", "1"), DATASHEET: ("2", "2"), PIVOT_TABLE: ("1", "3"),
                 SPLIT: ("1", "5"), 77: ("1", "0")}
        file = self.orders()
        for view in cases:
            file.add_form(f"View {view}", streams("Orders", section(DETAIL, control(BOX, "No", "Number"),
                                                                    subform("Inner", f"Form.Inner {view}"),
                                                                    subform("Table", "Table.Lines")), view=view))
            file.add_form(f"Inner {view}", streams("Lines", section(DETAIL, control(BOX, "Id", "Id")), view=view))
        described = self.describe(file).stdout
        for view, attributes in cases.items():
            forms = self.form(described, f"View {view}").iter("Form")
            self.assertEqual([(form.get("CurrentView"), form.get("DefaultView")) for form in forms],
                             [attributes, attributes, ("2", "2")])

    def test_a_continuous_form_becomes_a_table(self):
        file = AccessFile(ACE14)
        file.add_table("Lines", [Column("Id", LONG), Column("What", TEXT)], [(1, "tea")], keys=[[0]])
        shown = section(DETAIL, control(BOX, "No", "Id"), control(BOX, "Goods", "What"))
        file.add_form("All lines", streams("Lines", shown, view=CONTINUOUS))
        data, template = self.folder / "lines.xml", self.folder / "lines.docx"
        self.assertEqual(self.describe(file, "--object", "All lines", "--output", data).returncode, 0)
        ended = run(PROGRAM, "--exit-status", "-xmlfile", data, "-template", template, "-hidden")
        self.assertEqual(ended.returncode, 0, ended.stderr)
        self.assertIn("Present Data in the Table Form?", ended.stderr)
        self.assertEqual([cell.text for cell in docx.Document(template).tables[0].rows[0].cells], ["Id", "What"])

    def test_lists_of_forms(self):
        """Looks up the stored value of both orders' towns, 2, in the list that a form shows for them."""
        cases = (
            ({"rows": "SELECT Name, Id FROM Towns", "bound": 1, "widths": "1440;0"}, "Malmö"),
            ({"rows": "SELECT Id, Name FROM Towns", "bound": 1, "widths": "0;1440"}, "2"),
            ({"rows": "SELECT Id, Name FROM Towns", "bound": 0xFFFFFFFF, "widths": "0;1440"}, "2"),
            ({"rows": '1;"one";2;"two"', "values": "Value List", "columns": 2, "widths": "0;1440"}, "two"),
            ({"rows": '"one";1;"two";2', "values": "Value List", "columns": 2, "bound": 1}, "two"),
            ({"rows": '1;"one";2;"two"', "values": "Value List", "columns": 2}, "2"),
            ({"rows": "Towns", "values": "Field List"}, "2"),
        )
        for kind in (COMBO, LIST):
            for properties, shown in cases:
                with self.subTest(kind=kind, properties=properties):
                    file = self.orders()
                    listed = section(DETAIL, control(kind, "Town", "Town", **properties))
                    file.add_form("Listed", streams("Orders", listed))
                    ended = self.describe(file, "--object", "Listed", "--records", "1")
                    value = ElementTree.fromstring(ended.stdout).find("Data/Records/Record/Control")
                    self.assertEqual(value.findtext("DisplayValue"), shown)
                    self.assertEqual(value.findtext("BoundValue", "2"), "2")

    def test_records_of_a_form(self):
        ended = self.describe(self.orders(), "--object", "Form Order", "--records", "all")
        self.assertEqual(ended.returncode, 0)
        self.assertEqual(ended.stderr, "mergeloom-describe: The control 'Now' of 'Order' is not in the records: it "
                                       "shows no column of a table.\n")
        records = [[(control.get("Name"), [part.text for part in control if part.tag != "Records"],
                     [[line.findtext("DisplayValue") for line in row] for row in control.findall("Records/Record")])
                    for control in record]
                   for record in ElementTree.fromstring(ended.stdout).findall("Data/Records/Record")]
        self.assertEqual(records, [
            [("No", ["7"], []), ("Town", ["Malmö", "2"], []), ("Paid", ["Yes", "true"], []), ("Note", ["first"], []),
             ("Goods", [], [["1", "tea"], ["2", "rum"]])],
            [("No", ["8"], []), ("Town", [None], []), ("Paid", ["No", "false"], []), ("Note", [None], []),
             ("Goods", [], [["3", "salt"]])]])
        # The key is a column of the table that the form shows under another name.
        filtered = self.describe(self.orders(), "--object", "Order", "--records", "Number=8")
        self.assertEqual(len(ElementTree.fromstring(filtered.stdout).findall("Data/Records/Record")), 1)

    def test_from_a_form_to_letters(self):
        data, template = self.folder / "orders.xml", self.folder / "order.docx"
        self.orders().save(self.folder / "orders.accdb")
        database = self.folder / "orders.accdb"
        for command in ((DESCRIBE, database, "--object", "Order", "--records", "all", "--output", data),
                        (PROGRAM, "--exit-status", "-xmlfile", data, "-template", template, "-hidden"),
                        (PROGRAM, "--fill", template, "--data", data, "--output", self.folder / "{No}.docx")):
            ended = run(*command)
            self.assertEqual(ended.returncode, 0, ended.stderr)
        letter = docx.Document(self.folder / "7.docx")
        self.assertIn("Number: 7", [paragraph.text.rstrip() for paragraph in letter.paragraphs])
        self.assertEqual([cell.text.rstrip() for cell in letter.tables[0].rows[2].cells], ["2", "rum"])

    def test_formats_of_columns_and_controls(self):
        file = AccessFile(ACE14)
        file.add_table("Days", [Column("Id", LONG), Column("Day", DATE), Column("Open", BOOLEAN)],
                       [(1, 36526.5, True)], keys=[[0]],
                       properties={"Day": {"Format": "dd.mm.yyyy"}, "Open": {"Format": "On/Off"}})
        shown = control(BOX, "By the form", "Day")
        shown.properties.append(text(222, 38, "h:nn", NAME))
        file.add_form("Day", streams("Days", section(DETAIL, control(BOX, "By the table", "Day"), shown,
                                                     control(CHECK, "Open", "Open"))))
        ended = self.describe(file, "--object", "Form Day", "--records", "all")
        record = ElementTree.fromstring(ended.stdout).find("Data/Records/Record")
        self.assertEqual([[part.text for part in control] for control in record],
                         [["01.01.2000", "2000-01-01T12:00:00"], ["12:00", "2000-01-01T12:00:00"], ["On", "true"]])

    def test_numbers_by_the_formats_of_columns_and_controls(self):
        file = AccessFile(ACE14)
        file.add_table("Sums", [Column("Id", LONG), Column("Price", MONEY), Column("Rate", DOUBLE),
                                Column("Code", TEXT)],
                       [(1, -12345000, 0.195, "ab12")], keys=[[0]],
                       properties={"Price": {"Format": "$#,##0.00;($#,##0.00)"}, "Code": {"Format": ">@@-@@"},
                                   "Rate": {"Format": "Percent", "DecimalPlaces": 1}})
        rounded = control(BOX, "Rounded", "Rate")
        rounded.properties.append((50, 71, BYTE, b"\0"))
        fixed = control(BOX, "Fixed", "Rate")
        fixed.properties.append(text(222, 38, "Fixed", NAME))
        automatic = control(BOX, "Automatic", "Rate")
        automatic.properties.append((50, 71, BYTE, b"\xff"))
        file.add_form("Sum", streams("Sums", section(
            DETAIL, control(BOX, "Price", "Price"), control(BOX, "Code", "Code"), rounded, fixed, automatic)))
        ended = self.describe(file, "--object", "Form Sum", "--records", "all")
        record = ElementTree.fromstring(ended.stdout).find("Data/Records/Record")
        self.assertEqual([[part.text for part in control] for control in record],
                         [["($1,234.50)", "-1234.5"], ["AB-12", "ab12"], ["20%", "0.195"], ["0.20", "0.195"],
                          ["19.5%", "0.195"]])

    def test_an_option_group_shows_the_label_of_its_option(self):
        file = self.orders()
        file.add_form("Kinds", streams("Orders", section(DETAIL, control(
            GROUP, "Kind", "Town", "&Kind:", children=(
                option(OPTION, "One", 1, "by &rail"), option(OPTION, "Two", 2, 'by "sea"; R&&D'),
                option(TOGGLE, "Three", 3, own_caption="by air"))), control(BOX, "No", "Number"))))
        root = ElementTree.fromstring(self.describe(file, "--object", "Kinds", "--records", "all").stdout)
        group = root.find("Structure/Form/Sections/Section/Controls/Control")
        self.assertEqual((group.get("ControlType"), group.get("Caption")), ("OptionGroup", "&Kind:"))
        shown = [[part.text for part in record.find("Control[@Name='Kind']")] for record in root.iter("Record")]
        self.assertEqual(shown, [['by "sea"; R&D', "2"], [None]])

    def test_a_form_without_a_table_has_no_records(self):
        file = self.orders()
        cases = {"Query": "SELECT * FROM Lines", "Elsewhere": "Gone", "Other": "Towns"}
        for name, source in cases.items():
            file.add_form(name, streams(source, section(DETAIL, control(BOX, "What", "What"))))
        file.add_form("Alone", streams("", section(DETAIL, control(BOX, "What"))))
        ended = self.describe(file)
        self.assertEqual([self.form(ended.stdout, name).get("HasRecordset") for name in (*cases, "Alone")],
                         ["1", "1", "1", "0"])
        for name in cases:
            ended = self.describe(file, "--object", name, "--records", "all")
            self.assertEqual((ended.returncode, ended.stdout), (1, ""))
            self.assertIn(f"The records of 'Form {name}' cannot be read from '{self.folder}/made.accdb': ", ended.stderr)

    def test_a_form_with_more_lists_than_tables_can_be_joined(self):
        file = self.orders()
        boxes = [control(COMBO, f"Town{number}", "Town", widths="0;1440", rows="SELECT Id, Name FROM Towns")
                 for number in range(70)]
        file.add_form("Many", streams("Orders", section(DETAIL, control(BOX, "No", "Number"), *boxes)))
        ended = self.describe(file, "--object", "Form Many", "--records", "all")
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        record = ElementTree.fromstring(ended.stdout).find("Data/Records/Record")
        shown = [control.findtext("DisplayValue") for control in record if control.get("Name").startswith("Town")]
        self.assertEqual((shown[0], shown[-1], len(shown)), ("Malmö", "2", 70))

    def test_subforms_that_show_no_form_or_have_no_link(self):
        file = self.orders()
        file.add_form("Main", streams("Orders", section(
            DETAIL, control(BOX, "No", "Number"), subform("Gone", "Form.Nothing", "a", "b"),
            subform("Round", "Form.Main", "Number", "Number"), subform("Free", "Table.Lines"),
            subform("Wrong", "Form.Order lines", "Missing", "Number"),
            subform("Table", "Table.Lines", "[OrderNumber]", "Number"))))
        ended = self.describe(file, "--object", "Main", "--records", "1")
        for name in ("Gone", "Round"):
            self.assertIn(f"The subform '{name}' of 'Main' is left out: what it shows is not described.", ended.stderr)
        for name in ("Free", "Wrong"):
            self.assertIn(f"The subform '{name}' of 'Main' is not in the records: no columns link it", ended.stderr)
        record = ElementTree.fromstring(ended.stdout).find("Data/Records/Record")
        self.assertEqual([control.get("Name") for control in record], ["No", "Table"])
        self.assertEqual(len(record.findall("Control[@Name='Table']/Records/Record")), 2)
        self.assertEqual([control.get("Name") for control in self.form(ended.stdout, "Main").iter("Control")
                          if control.get("ControlType") == "Subform"], ["Free", "Wrong", "Table"])

    def test_designs_that_cannot_be_read_are_left_out(self):
        whole = lines_form()
        blob = whole["Blob"]
        broken = {"cut": blob[:-9], "longer": blob + b"1234",
                  "count": blob.replace(b"\xff\0\0\0\x03", b"\xff\0\0\0\x04", 1),
                  "empty": b"", "slots": blob.replace(b"\xdd\0\0\0", b"\x01\0\0\0", 1),
                  "without a section": streams("Lines", control(BOX, "a", "Id"))["Blob"],
                  "of a report": streams("Lines", section(DETAIL, control(BOX, "a")), section(157))["Blob"]}
        for name, design in broken.items():
            with self.subTest(name=name):
                file = self.orders()
                file.add_form("Broken", {**whole, "Blob": design})
                ended = self.describe(file)
                self.assertEqual(ended.returncode, 0)
                self.assertEqual(ended.stderr, "mergeloom-describe: The form 'Broken' is left out: its design cannot be "
                                               "read.\n")
                self.assertIsNotNone(self.form(ended.stdout, "Order"))
        file = self.orders()
        file.add_form("Changed", {**whole, "BlobDelta": b"1"})
        self.assertIn("The form 'Changed' is left out", self.describe(file).stderr)

    def test_older_files_keep_forms_elsewhere(self):
        file = AccessFile(JET4)
        file.add_table("Lines", [Column("Id", LONG)], [], keys=[[0]])
        file.add_form("Line", lines_form())
        file.forms = []
        self.assertIn("The stored forms are left out: those of Access 2000 and earlier cannot be read.",
                      self.describe(file).stderr)

    def test_damaged_designs_end_with_a_document(self):
        """Changed bytes make any part of a design wrong."""
        chance = random.Random(16)
        left_out = 0
        for _ in range(60):
            file = self.orders()
            name, parts = file.forms[0]
            blob = bytearray(parts["Blob"])
            for _ in range(chance.choice((1, 3, 30))):
                blob[chance.randrange(len(blob))] = chance.randrange(256)
            file.forms[0] = (name, {**parts, "Blob": bytes(blob)})
            ended = self.describe(file)
            self.assertEqual(ended.returncode, 0, ended.stderr)
            ElementTree.fromstring(ended.stdout)
            left_out += "The form 'Order' is left out" in ended.stderr
        self.assertGreater(left_out, 10)


class DescribeLists(ProgramTest):
    def shown(self, properties, keys=((0,),)):
        """Returns the control of the column Town, and its texts for 2 and for a missing town."""
        file = AccessFile(ACE14)
        file.add_table("Towns", [Column("Id", LONG), Column("Code", TEXT), Column("Name", TEXT)],
                       [(1, "B", "Bosham"), (2, "M", "Malmö")], keys=[list(key) for key in keys])
        file.add_table("Orders", [Column("Number", LONG), Column("Town", LONG)], [(7, 2), (8, 5)], keys=[[0]],
                       properties={"Town": properties})
        file.save(self.folder / "made.accdb")
        ended = run(DESCRIBE, self.folder / "made.accdb", "--object", "Table Orders", "--records", "all")
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        root = ElementTree.fromstring(ended.stdout)
        return (root.find(".//Control[@Name='Town']").get("ControlType"),
                [tuple(part.text for part in record.find("Control[@Name='Town']"))
                 for record in root.findall("Data/Records/Record")])

    def test_lists_of_columns(self):
        names = [("Malmö", "2"), ("5", "5")]
        plain = [("2",), ("5",)]
        statement = "SELECT [Towns].[Id], [Towns].[Name] FROM Towns;"
        values = {"DisplayControl": 111, "RowSourceType": "Value List", "ColumnCount": 2, "ColumnWidths": "0;1440"}
        cases = (
            ({"DisplayControl": 109}, "Textbox", plain),
            ({"DisplayControl": 106}, "Checkbox", [("Yes", "true"), ("Yes", "true")]),
            ({"DisplayControl": 111, "RowSource": statement, "ColumnWidths": "0;1440"}, "Combobox", names),
            ({"DisplayControl": 110, "RowSourceType": "Table/Query", "RowSource": "Towns", "ColumnWidths": "0cm;0cm;2cm"},
             "Listbox", names),
            ({"DisplayControl": 111, "RowSource": "select distinct name as n, id from [towns] order by name",
              "BoundColumn": 2}, "Combobox", names),
            ({"DisplayControl": 111, "RowSource": "SELECT Id, Name FROM Towns", "ColumnWidths": "0.5cm;2cm"}, "Combobox",
             plain),
            ({"DisplayControl": 111, "RowSource": "SELECT Id, Name FROM Towns WHERE Id<5", "ColumnWidths": "0"},
             "Combobox", plain),
            ({"DisplayControl": 111, "RowSource": "SELECT Id, Left(Name, 1) FROM Towns", "ColumnWidths": "0"},
             "Combobox", plain),
            ({"DisplayControl": 111, "RowSource": "SELECT Id FROM Towns, Orders", "ColumnWidths": "0"}, "Combobox",
             plain),
            ({"DisplayControl": 111, "RowSourceType": "Value List", "RowSource": "1;2"}, "Combobox", plain),
            ({**values, "RowSource": '2;"Malmö";5;"5"'}, "Combobox", names),
            ({**values, "RowSource": ' 2 ; "a ""b"";c" ;5; \'d\'\'e\' '}, "Combobox", [('a "b";c', "2"), ("d'e", "5")]),
            ({**values, "RowSource": "2;Malmö;5"}, "Combobox", [("Malmö", "2"), ("5", "5")]),
            ({**values, "RowSource": "Malmö;2;Lund;3", "BoundColumn": 2, "ColumnWidths": "1440;0"}, "Combobox", names),
            ({**values, "RowSource": '2;"unclosed'}, "Combobox", [("unclosed", "2"), ("5", "5")]),
            ({**values, "RowSource": "2;Malmö", "ColumnCount": 1}, "Combobox", plain),
            ({**values, "RowSource": "2;Malmö", "ColumnWidths": "1;1"}, "Combobox", plain),
            ({**values, "RowSource": "2;Malmö", "ColumnCount": -3}, "Combobox", plain),
            ({**values, "RowSource": "2;Malmö", "BoundColumn": 3}, "Combobox", plain),
        )
        for properties, kind, values in cases:
            with self.subTest(properties=properties):
                self.assertEqual(self.shown(properties), (kind, values))

    def test_a_list_shows_its_column_by_the_format_of_that(self):
        file = AccessFile(ACE14)
        file.add_table("Fares", [Column("Id", LONG), Column("Price", MONEY), Column("Since", DATE)],
                       [(1, 12345000, 36526.0)], keys=[[0]],
                       properties={"Price": {"Format": "$#,##0.00"}, "Since": {"Format": "dd.mm.yyyy"}})
        listed = {"DisplayControl": 111, "RowSource": "Fares"}
        file.add_table("Trips", [Column("Id", LONG), Column("Fare", LONG), Column("Time", LONG)], [(1, 1, 1)], keys=[[0]],
                       properties={"Fare": {**listed, "ColumnWidths": "0;1"}, "Time": {**listed, "ColumnWidths": "0;0;1"}})
        file.save(self.folder / "fares.accdb")
        ended = run(DESCRIBE, self.folder / "fares.accdb", "--object", "Table Trips", "--records", "all")
        record = ElementTree.fromstring(ended.stdout).find("Data/Records/Record")
        self.assertEqual([[part.text for part in control] for control in record][1:],
                         [["$1,234.50", "1"], ["01.01.2000", "1"]])

    def test_a_list_whose_rows_are_not_identified_is_none(self):
        statement = {"DisplayControl": 111, "RowSource": "SELECT Id, Name FROM Towns", "ColumnWidths": "0"}
        self.assertEqual(self.shown(statement, keys=((2,),)), ("Combobox", [("2",), ("5",)]))


if __name__ == "__main__":
    unittest.main()
