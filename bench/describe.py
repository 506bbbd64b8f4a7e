#!/usr/bin/env python3
"""Measures the description of databases: the structure of many tables, and records nested in the records that they
belong to, beside sqlite3 -json and mdb-json with a script that nests them.

Usage: describe.py PROGRAM [--tables N] [--records N] [--runs N]. It needs the Debian packages sqlite3, mdbtools and time.
PostgreSQL and MariaDB are measured where they and their drivers are installed; the time of their processors stands
beside that of the program.
"""
import argparse
import os
import pathlib
import sqlite3
import statistics
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "tests" / "scripts"))
from access_file import BOOLEAN, DATE, DOUBLE, LONG, MONEY, TEXT, AccessFile, Column  # noqa: E402
from database_servers import PASSWORD, MariaDb, NotThere, PostgreSql  # noqa: E402

NESTING = """
import json, subprocess, sys
def read(table):
    if sys.argv[1].endswith(".mdb"):
        told = subprocess.run(["mdb-json", sys.argv[1], table], capture_output=True, check=True)
        return [json.loads(line) for line in told.stdout.splitlines()]
    told = subprocess.run(["sqlite3", "-json", sys.argv[1], "SELECT * FROM " + table], capture_output=True, check=True)
    return json.loads(told.stdout)
orders, lines = read("orders"), {}
for line in read("lines"):
    lines.setdefault(line["order_number"], []).append(line)
for order in orders:
    order["lines"] = lines.get(order["number"], [])
with open(sys.argv[2], "w", encoding="utf-8") as file:
    json.dump(orders, file)
"""


def make_tables(path, count):
    """Writes tables of seven columns, each of which refers to the table before it, to a database of SQLite."""
    with sqlite3.connect(path) as connection:
        for number in range(count):
            connection.execute(f"CREATE TABLE t{number} (id INTEGER PRIMARY KEY, a TEXT, b INTEGER, c DATE, d TEXT, "
                               f"e REAL, before INTEGER REFERENCES t{max(0, number - 1)})")


def make_access_tables(path, count):
    """Writes the same tables to a file of Access."""
    file = AccessFile()
    for number in range(count):
        file.add_table(f"t{number}", [Column("id", LONG), Column("a", TEXT), Column("b", LONG), Column("c", DATE),
                                      Column("d", TEXT), Column("e", DOUBLE), Column("before", LONG)], [], keys=[[0]])
        file.add_relation(f"r{number}", f"t{number}", ["before"], f"t{max(0, number - 1)}", ["id"])
    file.save(path)


def make_server_tables(server, count):
    """Makes the same tables in a database of a server."""
    server.execute("\n".join(
        f"CREATE TABLE t{number} (id INTEGER PRIMARY KEY, a VARCHAR(50), b INTEGER, c DATE, d VARCHAR(50), "
        f"e DOUBLE PRECISION, before_it INTEGER, FOREIGN KEY (before_it) REFERENCES t{max(0, number - 1)} (id));"
        for number in range(count)))


def make_records(path, count):
    """Writes orders of ten columns with two lines each to a database of SQLite."""
    with sqlite3.connect(path) as connection:
        connection.execute("CREATE TABLE orders (number INTEGER PRIMARY KEY, customer TEXT, ordered DATE, paid BOOLEAN, "
                           "freight DECIMAL(8, 2), a TEXT, b TEXT, c TEXT, d INTEGER, e REAL)")
        connection.execute("CREATE TABLE lines (order_number INTEGER REFERENCES orders, line INTEGER, product TEXT, "
                           "quantity INTEGER, price DECIMAL(8, 2), PRIMARY KEY (order_number, line))")
        connection.executemany("INSERT INTO orders VALUES (?, ?, ?, ?, ?, 'text a', 'text b', 'text c', ?, ?)", (
            (number, f"customer {number}", f"20{number % 90 + 10}-05-14", number % 2, number / 7, number, number * 1.5)
            for number in range(count)))
        connection.executemany("INSERT INTO lines VALUES (?, ?, ?, 3, 1.25)", (
            (number, line, f"product {number}") for number in range(count) for line in (1, 2)))


def make_access_records(path, count):
    """Writes the same orders to a file of Access."""
    file = AccessFile()
    file.add_table("orders", [Column("number", LONG), Column("customer", TEXT), Column("ordered", DATE),
                              Column("paid", BOOLEAN), Column("freight", MONEY), Column("a", TEXT), Column("b", TEXT),
                              Column("c", TEXT), Column("d", LONG), Column("e", DOUBLE)],
                   [(number, f"customer {number}", 36526.0 + number % 9000, bool(number % 2), number * 1428, "text a",
                     "text b", "text c", number, number * 1.5) for number in range(count)], keys=[[0]])
    file.add_table("lines", [Column("order_number", LONG), Column("line", LONG), Column("product", TEXT),
                             Column("quantity", LONG), Column("price", MONEY)],
                   [(number, line, f"product {number}", 3, 12500) for number in range(count) for line in (1, 2)],
                   keys=[[0, 1]])
    file.add_relation("orderslines", "lines", ["order_number"], "orders", ["number"])
    file.save(path)


def measure(command, runs):
    """Returns the medians of the wall time and the processor time in seconds and of the peak memory in MB."""
    rounds = []
    for _ in range(runs):
        told = subprocess.run(["/usr/bin/time", "-f", "%e %U %S %M", *map(str, command)], capture_output=True, text=True,
                              check=True).stderr.split()[-4:]
        wall, user, system, memory = map(float, told)
        rounds.append((wall, user + system, memory / 1024))
    return [statistics.median(column) for column in zip(*rounds)]


def show(title, figures):
    print(f"{title:54} {figures[0]:6.2f} s {figures[1]:6.2f} s of the processor {figures[2]:5.0f} MB")


def measure_server(kind, options, target):
    """Measures the structure of the tables of a server. A connection before the measurement warms up the server."""
    try:
        server = kind()
    except NotThere as reason:
        print(f"{kind.__name__} is left out: {reason}")
        return
    try:
        make_server_tables(server, options.tables)
        os.environ["MERGELOOM_ODBC_PASSWORD"] = PASSWORD
        command = [options.program, server.source, "--output", target]
        measure(command, 1)
        before = server.processor_seconds()
        figures = measure(command, options.runs)
        share = (server.processor_seconds() - before) / options.runs
        show(f"{kind.__name__}: the structure of {options.tables} tables", figures)
        print(f"{'':54} {'':8} {share:6.2f} s of the processor in the server")
    finally:
        server.stop()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--tables", type=int, default=1000)
    parser.add_argument("--records", type=int, default=100_000)
    parser.add_argument("--runs", type=int, default=3)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for make, name in ((make_tables, "tables.db"), (make_access_tables, "tables.mdb")):
            make(folder / name, options.tables)
            show(f"{name}: the structure of {options.tables} tables",
                 measure([options.program, folder / name, "--output", folder / "tables.xml"], options.runs))
        for kind in (PostgreSql, MariaDb):
            measure_server(kind, options, folder / "tables.xml")
        for make, name, peer in ((make_records, "records.db", "sqlite3"), (make_access_records, "records.mdb", "mdb")):
            make(folder / name, options.records)
            ours = measure([options.program, folder / name, "--object", "orders", "--records", "all", "--output",
                            folder / "records.xml"], options.runs)
            theirs = measure([sys.executable, "-c", NESTING, folder / name, folder / "records.json"], options.runs)
            show(f"{name}: {options.records} records with two others each", ours)
            show(f"{peer}-json and a script that nests them", theirs)
            print(f"times as fast: {theirs[0] / ours[0]:.2f}, by processor time {theirs[1] / max(ours[1], 0.01):.2f}")


if __name__ == "__main__":
    main()
