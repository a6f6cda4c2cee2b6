#!/usr/bin/env bash
# Writes every built report, as CSV and JSON, on a fixed set of drawings files into a folder, so
# that two builds can be compared cell for cell:
#   scripts/report_snapshot.sh build/bin/numarel-cli before/
#   ... change and rebuild ...
#   scripts/report_snapshot.sh build/bin/numarel-cli after/ && diff -r before after
# The files: the sample lottery, the small odd cases of tests/cases, a history with fields that are
# not one digit, and a made-up history of the largest size the reports can count (32767 drawings).
set -euo pipefail
cli=$(realpath "$1")
out=$2
root=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$out"

cases=("$root"/tests/cases/*.txt "$root/resources/data/Synthetic-Demo.txt")
largest="$out/.largest.txt"
"$root/scripts/largest_history.py" "$largest"
# Fields that are not one digit: a field that cannot be read keeps the digit in hand from the
# drawing before, which a report may have sorted or changed, so this file tells such reports apart.
fields="$out/.fields.txt"
python3 - "$fields" <<'PY'
import sys
state = 777
odd = ["x", "12", "-3", "", "7.5", "99999"]
with open(sys.argv[1], "w", newline="") as f:
    for i in range(400):
        digits = []
        for _ in range(3):
            state = (state * 1664525 + 1013904223) % 2**32
            r = (state >> 16) % 100
            digits.append(odd[r % len(odd)] if r < 12 else str(r % 10))
        f.write(f"{2000001 + i} {' '.join(d or '?' for d in digits)}\r\n")
PY
cases+=("$largest" "$fields")

reports=$("$cli" list | awk -F'\t' '$5 == "yes" { print $3 }')
for file in "${cases[@]}"; do
  name=$(basename "$file" .txt)
  name=${name#.}
  for report in $reports; do
    for format in csv json; do
      "$cli" report "$report" --data "$file" --format "$format" \
        > "$out/$name.$report.$format" 2>&1 || echo "exit $?" >> "$out/$name.$report.$format"
    done
  done
done
rm -f "$largest" "$fields"
echo "$(ls "$out" | wc -l) outputs in $out"
