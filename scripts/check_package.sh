#!/usr/bin/env bash
# Validates a built package: its menu entry, its metainfo, and the package as lintian sees it.
set -euo pipefail
deb=$(realpath "$1")
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
dpkg-deb -x "$deb" "$root"
desktop-file-validate "$root"/usr/share/applications/*.desktop
appstreamcli validate --no-net "$root"/usr/share/metainfo/*.metainfo.xml
lintian --fail-on error,warning "$deb"
echo "Package checks passed: $(basename "$deb")"
