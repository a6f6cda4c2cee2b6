#!/usr/bin/env bash
# Measures every report on the benchmark's 32767-drawing history and writes docs/speed.md: per
# report its time, its floor (a fresh sheet of the report's size with its cells written once), the
# ratio of the two, and bytes a cell, medians of three runs; then the totals. Run it on a quiet
# machine.
#   scripts/speed_table.sh [BUILD_DIR]      (build/ unless given; needs python3)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
json=$(mktemp)
trap 'rm -f "$json"' EXIT
"$build/bin/numarel_bench" --benchmark_filter='BM_Report/' --benchmark_repetitions=3 \
  --benchmark_report_aggregates_only=true --benchmark_format=json >"$json" 2>/dev/null
python3 - "$json" docs/speed.md <<'PY'
import datetime, functools, json, sys
runs = json.load(open(sys.argv[1]))["benchmarks"]
medians = [b for b in runs if b.get("aggregate_name") == "median"]
rows = sorted(((b["run_name"].split("/", 1)[1], b["real_time"], b["floor_ms"], b["ratio"],
                b["bytes_per_cell"]) for b in medians), key=lambda r: -r[1])
out = open(sys.argv[2], "w")
print = functools.partial(print, file=out)
print("# Speed of every report")
print()
print("Written by `scripts/speed_table.sh` on " + datetime.date.today().isoformat() +
      ": every report built on the benchmark's 32767-drawing history (`build/bin/numarel_bench "
      "--benchmark_filter=BM_Report/`), medians of three runs. The floor is a fresh sheet of the "
      "report's final size with every cell it fills written once, measured in the same run; the "
      "ratio of the two holds on a busy machine where a time does not.")
print()
print("| Report | ms | floor ms | ratio | bytes per cell |")
print("|---|---|---|---|---|")
for name, ms, floor, ratio, bpc in rows:
    print(f"| `{name}` | {ms:.1f} | {floor:.1f} | {ratio:.1f} | {bpc:.1f} |")
total = sum(r[1] for r in rows)
tickets = {"frmzhixuanhaocx", "frmzuxuanhaocx"}
print()
print(f"{len(rows)} reports: {total:.0f} ms together "
      f"({sum(r[1] for r in rows if r[0] not in tickets):.0f} ms for the {len(rows) - 2} that need "
      f"no tickets); floors {sum(r[2] for r in rows):.0f} ms; over 20 ms: "
      f"{sum(1 for r in rows if r[1] > 20)}; over 3 times the floor: "
      f"{sum(1 for r in rows if r[3] > 3)}; most bytes a cell: {max(r[4] for r in rows):.1f}")
out.close()
PY
tail -n 1 docs/speed.md
