"""Writes the designs of forms as Access 2003 and later store them, for access_file.AccessFile.add_form.

An object of a design is a list of properties, each with its slot, its code and its type, followed by the objects in it.
"""
import struct

LABEL, BUTTON, OPTION, CHECK, GROUP, FRAME, BOX, LIST, COMBO, SUBFORM = 100, 104, 105, 106, 107, 108, 109, 110, 111, 112
TOGGLE, TAB, PAGE = 122, 123, 124
DETAIL, HEADER, FOOTER, PAGE_HEADER, PAGE_FOOTER = range(152, 157)

BYTE, SHORT, NUMBER, NAME, TEXT = 2, 3, 4, 10, 12

# The views of a form, of which Access omits the second one.
SINGLE, CONTINUOUS, DATASHEET, PIVOT_TABLE, PIVOT_CHART, SPLIT = range(6)


def text(slot, code, value, kind=TEXT):
    return (slot, code, kind, value.encode("utf-16-le"))


class Item:
    """A form, a section or a control."""

    def __init__(self, kind, *children, properties=()):
        self.kind, self.children, self.properties = kind, children, properties

    def packed(self):
        content = b"".join(struct.pack("<IHIII", slot, code, kind, 4, len(value)) + value
                           for slot, code, kind, value in sorted(self.properties))
        for number, child in enumerate(self.children):
            if len(self.children) == 1:
                content += struct.pack("<IH", 0xFE, child.kind)
            elif number == 0:
                content += struct.pack("<IHH", 0xFF, len(self.children), child.kind)
            else:
                content += struct.pack("<IH", 0xFD, child.kind)
            content += child.packed()
        return content


def control(kind, name, source=None, caption=None, rows=None, widths=None, bound=None, children=(), values=None,
            columns=1):
    """Returns a control with its label. The values are the kind of its list, and its bound column is counted from 0."""
    properties = [(99, 54, SHORT, b"\x10\0"), text(220, 20, name, NAME), (250, 376, 9, bytes(range(16)))]
    if columns != 1:
        properties.append((96, 70, SHORT, struct.pack("<H", columns)))
    if source is not None:
        properties.append(text(221, 27, source))
    if rows is not None:
        properties += [text(222, 93, values or "Table/Query", NAME), text(223, 91, rows)]
    if widths is not None:
        properties.append(text(224, 18, widths, NAME))
    if bound is not None:
        properties.append((156, 13, NUMBER, struct.pack("<I", bound)))
    labels = () if caption is None else (label(name + "_Label", caption),)
    return Item(kind, *labels, *children, properties=properties)


def option(kind, name, value, caption=None, own_caption=None):
    """Returns a button of an option group with a label beside it or a caption on it."""
    button = control(kind, name, caption=caption)
    button.properties.append((154, 58, NUMBER, struct.pack("<i", value)))
    if own_caption is not None:
        button.properties.append(text(221, 17, own_caption))
    return button


def label(name, caption):
    return Item(LABEL, properties=[text(220, 20, name, NAME), text(221, 17, caption)])


def subform(name, shown, child="", master="", caption=None):
    properties = [text(220, 20, name, NAME), text(221, 132, shown, NAME)]
    if child:
        properties += [text(222, 49, child, NAME), text(223, 50, master, NAME)]
    labels = () if caption is None else (label(name + "_Label", caption),)
    return Item(SUBFORM, *labels, properties=properties)


def section(kind, *controls):
    return Item(kind, *controls, properties=[text(220, 20, f"Section{kind}", NAME)])


def streams(source, *sections, view=SINGLE):
    """Returns the streams of a form. The properties of new controls are before its sections."""
    properties = [(61, 309, BYTE, b"\x02"), (208, 376, 9, bytes(16)), text(221, 17, "A title")]
    if source:
        properties.append(text(220, 156, source))
    if view != CONTINUOUS:
        properties.append((48, 147, BYTE, bytes([view])))
    new = [Item(kind, properties=[(160, 8, NUMBER, bytes(4))]) for kind in (LABEL, BOX)]
    form = Item(0, *new, *sections, properties=properties)
    return {"Blob": bytes(10) + form.packed() + bytes(4), "BlobDelta": None, "TypeInfo": b"\xf7\xea\xcd\xac"}
