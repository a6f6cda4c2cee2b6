#!/usr/bin/env bash
# Writes the golden outputs of every report anew (tests/golden/expected) and lists the reports
# whose CSV or JSON changed, so that an intended change to a report's cells is one reviewed commit:
#   scripts/update_golden.sh [build-folder]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
cmake --build "$build" --target test_golden -j"$(nproc)" >/dev/null
changes=$(NUMAREL_UPDATE_GOLDEN=1 "$build/bin/test_golden" | grep '^changed: ' || true)
if [ -z "$changes" ]; then
  echo "No report changed."
else
  # One line a report: the drawings files on which its CSV or JSON changed.
  echo "$changes" | awk '{ key = $2; if (!(key in seen)) { order[++n] = key; seen[key] = "" }
                           if (index(seen[key], $5) == 0) seen[key] = seen[key] " " $5 }
                         END { for (i = 1; i <= n; i++) print order[i] ":" seen[order[i]] }'
  echo "$(echo "$changes" | wc -l) outputs changed; review them with git diff tests/golden."
fi
