#!/usr/bin/env python3
"""Writes the shipped sample lottery: a synthetic history, not real results.

Deterministic: the same script always writes the same file. Dates are seven digits, the year
followed by the day of the year, one drawing a day.
"""
import sys

def main(path, count=3000):
    state = 20240607
    lines = []
    year, day = 2016, 1
    for _ in range(count):
        digits = []
        for _ in range(3):
            state = (state * 1103515245 + 12345) % 2**31
            digits.append(str((state >> 16) % 10))
        lines.append(f"{year}{day:03d} {' '.join(digits)}\r\n")
        day += 1
        leap = year % 4 == 0 and (year % 100 != 0 or year % 400 == 0)
        if day > (366 if leap else 365):
            year, day = year + 1, 1
    with open(path, "w", newline="") as f:
        f.writelines(lines)

if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "resources/data/Synthetic-Demo.txt")
