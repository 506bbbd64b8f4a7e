"""Writes structure documents with records, for tests that fill templates."""
import copy
import xml.etree.ElementTree as ElementTree


def write_orders(sample, path, count, lines=2, change=lambda number, record: None):
    """Writes the given numbers of orders and of lines, which are copies of the sample's one order. Returns the path.
    Each order can be changed before it is written."""
    tree = ElementTree.parse(sample)
    records = tree.getroot().find("Data/Records")
    record = records.find("Record")
    records.remove(record)
    for number in range(1, count + 1):
        order = copy.deepcopy(record)
        order.find("Control[@Name='OrderNumber']/DisplayValue").text = f"N-{number:05}"
        rows = order.find("Control[@Name='OrderLines']/Records")
        line = rows.find("Record")
        for old in list(rows):
            rows.remove(old)
        for position in range(1, lines + 1):
            new = copy.deepcopy(line)
            new.find("Control[@Name='LineNumber']/DisplayValue").text = str(position)
            rows.append(new)
        change(number, order)
        records.append(order)
    tree.write(path, encoding="utf-8", xml_declaration=True)
    return path
