#!/usr/bin/env python3
"""Writes a made-up history of the largest size the reports can count: 32767 drawings with
seven-digit dates and digits from a fixed pseudo-random sequence (the benchmark's history).
  scripts/largest_history.py FILE"""
import sys

state = 12345
with open(sys.argv[1], "w", newline="") as f:
    for i in range(32767):
        digits = []
        for _ in range(3):
            state = (state * 1664525 + 1013904223) % 2**32
            digits.append(str((state >> 16) % 10))
        f.write(f"{1000001 + i} {' '.join(digits)}\r\n")
