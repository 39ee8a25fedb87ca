"""Opens a workbook with a reader that is not this project's (openpyxl) and compares it with text tables.

same_as_tables.py WORKBOOK SHEET=TABLE...    a table is a file with tabs; the first sheets must hold the same, cell by cell:
identifications and names as texts, figures as numbers, days as days. Says what differs, and fails when anything does.
"""

import csv
import datetime
import sys

import openpyxl

TEXTS = {"id", "sire", "dam", "name", "female", "male", "female_name", "male_name", "ancestor_1", "figure", "code"}
NUMBERS = {"F", "mean_kinship", "offspring", "year", "n", "optimum", "kinship", "rank", "line"}
FIRST_DAY = "1900-03-01"  # earlier days are texts


def differs(column, written, read):
    """What is wrong with a cell; nothing when it is right."""
    if written == "":
        return None if read is None else f"is {read!r} instead of empty"
    if column == "birthdate" and written >= FIRST_DAY:
        is_right = isinstance(read, datetime.datetime) and read.date().isoformat() == written
    elif column in TEXTS:
        is_right = isinstance(read, str) and read == written
    elif column in NUMBERS or isinstance(read, (int, float)):
        is_right = isinstance(read, (int, float)) and float(written) == read
    else:
        is_right = read == written
    return None if is_right else f"is {read!r} instead of {written!r}"


def compare(sheet, table):
    with open(table, encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file, delimiter="\t"))
    faults = []
    if sheet.freeze_panes != "A2":
        faults.append("the heading is not frozen")
    if sheet.auto_filter.ref != sheet.dimensions:
        faults.append(f"{sheet.auto_filter.ref} is filtered, not {sheet.dimensions}")
    if sheet.max_row != len(rows):
        faults.append(f"{sheet.max_row} rows instead of {len(rows)}")
    for number, (written, read) in enumerate(zip(rows, sheet.iter_rows(values_only=True)), 1):
        read = list(read) + [None] * (len(written) - len(read))
        for column, one, other in zip(rows[0], written, read):
            fault = differs(column if number > 1 else "name", one, other)
            if fault:
                faults.append(f"row {number}, {column}: {fault}")
    return faults


def main():
    workbook = openpyxl.load_workbook(sys.argv[1])
    tables = dict(argument.split("=", 1) for argument in sys.argv[2:])
    faults = []
    if workbook.sheetnames[: len(tables)] != list(tables):
        faults.append(f"sheets are {workbook.sheetnames}")
    for name, table in tables.items():
        if name in workbook.sheetnames:
            faults += [f"{name}: {fault}" for fault in compare(workbook[name], table)]
    for fault in faults[:20]:
        print(f"{sys.argv[1]}: {fault}")
    sys.exit(1 if faults else 0)


main()
