#!/usr/bin/env bash
# How long headless Chromium takes to show the largest report page of a 32767-drawing history,
# against a blank page, and how large every page is against its CSV:
#   scripts/page_times.sh build/bin/numarel-cli [runs] [folder] [screenshots folder]
# Writes every report as HTML and CSV into the folder (a temporary one by default), then takes a
# screenshot of a blank page and of the largest page `runs` times each (5 by default) and prints
# the medians of the wall-clock times. With a screenshots folder it also saves the largest page at
# its newest rows and at the top, and the index page. Chromium: apt-get install -y chromium.
set -euo pipefail
cli=$(realpath "$1")
runs=${2:-5}
out=${3:-$(mktemp -d)}
mkdir -p "$out"
out=$(realpath "$out")
browser=$(command -v chromium || command -v chromium-browser || true)
if [ -z "$browser" ]; then
  echo "page_times.sh: Chromium is missing (apt-get install -y chromium)" >&2
  exit 1
fi

history="$out/History-32767.txt"
"$(dirname "$0")/largest_history.py" "$history"
"$cli" report --all --data "$history" --format html --output "$out/html"
"$cli" report --all --data "$history" --format csv --output "$out/csv"
printf '<!DOCTYPE html>\n<html><head><meta charset="utf-8"><title>blank</title></head><body></body></html>\n' \
  > "$out/blank.html"

# Page sizes against the CSV of the same report.
python3 - "$out" <<'PY'
import os, sys
out = sys.argv[1]
rows = []
for name in os.listdir(f"{out}/csv"):
    report = name[:-4]
    csv = os.path.getsize(f"{out}/csv/{name}")
    html = os.path.getsize(f"{out}/html/{report}.html")
    rows.append((html / csv, report, csv, html))
rows.sort(reverse=True)
total_csv = sum(r[2] for r in rows)
total_html = sum(r[3] for r in rows)
print(f"{len(rows)} reports: HTML {total_html / 1e6:.1f} MB, CSV {total_csv / 1e6:.1f} MB")
print(f"largest ratio HTML/CSV: {rows[0][1]} {rows[0][0]:.2f}; smallest: {rows[-1][1]} {rows[-1][0]:.2f}")
largest = max(rows, key=lambda r: r[3])
print(f"largest page: {largest[1]}.html {largest[3] / 1e6:.1f} MB (CSV {largest[2] / 1e6:.1f} MB)")
with open(f"{out}/largest", "w") as f:
    f.write(largest[1])
PY
largest=$(cat "$out/largest")

# Wall-clock seconds of one headless screenshot of a file.
shot() {
  local start end
  start=$(date +%s.%N)
  "$browser" --headless --disable-gpu --no-sandbox --hide-scrollbars=false \
    --screenshot="$out/shot.png" --window-size=1400,900 "file://$1" > /dev/null 2>&1
  end=$(date +%s.%N)
  python3 -c "print(f'{$end - $start:.3f}')"
}
median() { sort -n | awk '{ a[NR] = $1 } END { printf "%.2f", (NR % 2) ? a[(NR + 1) / 2] : (a[NR / 2] + a[NR / 2 + 1]) / 2 }'; }

shot "$out/blank.html" > /dev/null  # the first start loads the browser from the disk
blank=$(for _ in $(seq "$runs"); do shot "$out/blank.html"; done | median)
page=$(for _ in $(seq "$runs"); do shot "$out/html/$largest.html"; done | median)
echo "blank page: $blank s; $largest.html: $page s; difference: $(python3 -c "print(f'{$page - $blank:.2f}')") s (medians of $runs)"

if [ -n "${4:-}" ]; then
  mkdir -p "$4"
  shots=$(realpath "$4")
  run() { "$browser" --headless --disable-gpu --no-sandbox --window-size="$1" --screenshot="$2" "$3" > /dev/null 2>&1; }
  run 1400,900 "$shots/page-newest-rows.png" "file://$out/html/$largest.html"
  run 1400,900 "$shots/page-top.png" "file://$out/html/$largest.html#top"
  run 1000,1300 "$shots/page-index.png" "file://$out/html/index.html"
  echo "screenshots in $shots"
fi
