#!/usr/bin/env python3
"""Reads delimited files with Python's csv module and checks that every data
row has the same number of columns.

    check_columns.py [--delimiter D] [--after-blank] FILE...

--after-blank: the data start after the first empty line (the XLS file's
column line and its header come first); a "~ASCII" line is passed over. Prints one line per file:
"FILE rows N columns C", or the first row that differs, and exits 1 then.
"""
import csv
import sys


def main(argv):
    delimiter = ","
    after_blank = False
    files = []
    i = 0
    while i < len(argv):
        if argv[i] == "--delimiter":
            delimiter = argv[i + 1].replace("\\t", "\t")
            i += 2
        elif argv[i] == "--after-blank":
            after_blank = True
            i += 1
        else:
            files.append(argv[i])
            i += 1
    failed = False
    for name in files:
        with open(name, newline="", encoding="latin-1") as f:
            rows = list(csv.reader(f, delimiter=delimiter))
        if after_blank:
            rows = rows[rows.index([]) + 1:] if [] in rows else []
        # "~ASCII" closes a LAS header that may stand on top.
        rows = [r for r in rows if r and not r[0].startswith("~")]
        widths = {len(r) for r in rows}
        if len(widths) != 1:
            bad = next(n for n, r in enumerate(rows) if len(r) != len(rows[0]))
            print(f"{name} row {bad} has {len(rows[bad])} columns, the first {len(rows[0])}")
            failed = True
        else:
            print(f"{name} rows {len(rows)} columns {widths.pop()}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
