#!/usr/bin/env python3
"""Measures shared lessons with real processes on this machine's loopback, with a millisecond added each way, and prints one
table. Ends with 1 when a row cannot be measured."""

import argparse
import os
import sys
import traceback

import own_rows
import rows
from lesson import end_with_us

ROWS = {
    "1": rows.same_pixels,
    "2": own_rows.own_ink,
    "3": rows.others_ink,
    "4": own_rows.undo,
    "5": rows.late_join,
    "6": rows.cut,
    "7": rows.engine_lost,
    "12": own_rows.presence,
    "17": own_rows.picture,
    "19": own_rows.still_a_board,
}


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--quick", action="store_true", help="shorter and smaller, for trying: two minutes")
    parser.add_argument("--rows", default=",".join(ROWS), help="those to measure, for example 3,6")
    parser.add_argument("--seeds", type=int, help="of the simulator: 300, and 20 with --quick; 10000 is the figure's")
    parser.add_argument("--boards", type=int, default=30)
    parser.add_argument("--whole", type=int, default=10, help="of these, that paint; the others only follow")
    parser.add_argument("--long", action="store_true", help="with the cut of ten minutes, and 10 000 objects for who comes late")
    how = parser.parse_args()
    how.seeds = how.seeds or (20 if how.quick else 300)
    how.seconds = 20 if how.quick else 60
    how.cuts = [1, 5] if how.quick else [1, 30, 600] if how.long else [1, 30]
    return how


def main():
    how = arguments()
    end_with_us()
    table, status = [rows.Row("#", "What", "measured", "figure to reach", "")], 0
    for number in how.rows.split(","):
        try:
            table += ROWS[number](how)
        except Exception as problem:  # the others are measured all the same
            traceback.print_exc()
            table.append(rows.Row(number, "not measured", str(problem), "", "missed"))
            status = 1
    widths = [max(len(cells[i]) for cells in table) for i in range(5)]
    for i, cells in enumerate(table):
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(cells, widths)) + " |")
        if i == 0:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")
    load = os.getloadavg()[0]
    print(f"\n{os.cpu_count()} processors, load {load:.1f} at the end.")
    return status


if __name__ == "__main__":
    sys.exit(main())
