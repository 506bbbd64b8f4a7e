#!/usr/bin/env python3
"""Writes a structure document with one form of as many labelled text boxes as asked for."""

import argparse
from xml.sax.saxutils import quoteattr


def control_name(number, same_name):
    return "Field" if same_name else f"Field{number}"


def write_form(out, count, same_name):
    out.write(' <Structure>\n  <Form Name="Fields" CurrentView="1" DefaultView="0" HasRecordset="1">\n')
    out.write('   <Sections>\n    <Section Name="Detail" Number="0">\n     <Controls>\n')
    for number in range(1, count + 1):
        name = quoteattr(control_name(number, same_name))
        caption = quoteattr(f"Field {number}:")
        out.write(f'      <Control Name={name} Caption={caption} ControlType="Textbox"'
                  f' ControlSource={name} Section="0"/>\n')
    out.write('     </Controls>\n    </Section>\n   </Sections>\n  </Form>\n </Structure>\n')


def write_data(out, count, same_name):
    out.write(' <Data>\n  <Records>\n   <Record>\n')
    for number in range(1, count + 1):
        name = quoteattr(control_name(number, same_name))
        out.write(f'    <Control Name={name}>\n     <DisplayValue>Value {number}</DisplayValue>\n'
                  f'     <BoundValue>{number}</BoundValue>\n    </Control>\n')
    out.write('   </Record>\n  </Records>\n </Data>\n')


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("controls", type=int, help="how many controls the form holds")
    parser.add_argument("file", help="the file to write")
    parser.add_argument("--data", action="store_true",
                        help="add a record with a displayed and a bound value for each control")
    parser.add_argument("--same-name", action="store_true", help="give all controls the same name")
    arguments = parser.parse_args()
    with open(arguments.file, "w", encoding="utf-8") as out:
        out.write('<?xml version="1.0" encoding="UTF-8"?>\n<Database Name="Benchmark">\n')
        write_form(out, arguments.controls, arguments.same_name)
        if arguments.data:
            write_data(out, arguments.controls, arguments.same_name)
        out.write('</Database>\n')


if __name__ == "__main__":
    main()
