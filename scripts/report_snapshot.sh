#!/usr/bin/env bash
# Writes every built report, as CSV and JSON, on a fixed set of drawings files into a folder, so
# that two builds can be compared cell for cell:
#   scripts/report_snapshot.sh build/bin/numarel-cli before/
#   ... change and rebuild ...
#   scripts/report_snapshot.sh build/bin/numarel-cli after/ && diff -r before after
# The files: the sample lottery, the small odd cases of tests/cases, and a made-up history of the
# largest size the reports can count (32767 drawings).
set -euo pipefail
cli=$(realpath "$1")
out=$2
root=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$out"

cases=("$root"/tests/cases/*.txt "$root/resources/data/Synthetic-Demo.txt")
largest="$out/.largest.txt"
python3 - "$largest" <<'PY'
import sys
state = 12345
with open(sys.argv[1], "w", newline="") as f:
    for i in range(32767):
        digits = []
        for _ in range(3):
            state = (state * 1664525 + 1013904223) % 2**32
            digits.append(str((state >> 16) % 10))
        f.write(f"{1000001 + i} {' '.join(digits)}\r\n")
PY
cases+=("$largest")

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
rm -f "$largest"
echo "$(ls "$out" | wc -l) outputs in $out"
