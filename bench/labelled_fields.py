"""Reads the labelled fields of a structure document for the programs that write them with Python."""

import xml.etree.ElementTree as ElementTree


def labelled_fields(structure_file):
    """Returns the caption and the name of each control of the first form."""
    form = ElementTree.parse(structure_file).getroot().find("Structure/Form")
    for control in form.iter("Control"):
        name = control.get("Name")
        yield control.get("Caption", name).rstrip(":").strip(), name
