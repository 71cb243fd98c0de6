#!/bin/sh
# Reads LAS files with an independent LAS 2.0 reader (the npm package
# las-js, installed into a folder of its own on first use) and prints, per
# file, the number of curves, of data rows and the width of the first row.
# Without npm (or with no network) it says "unavailable" and exits 3.
set -e
cache="${LASJS_DIR:-${TMPDIR:-/tmp}/gaschart-lasjs}"
if [ ! -d "$cache/node_modules/las-js" ]; then
    command -v npm >/dev/null 2>&1 || { echo unavailable; exit 3; }
    mkdir -p "$cache"
    (cd "$cache" && npm install --silent --no-audit --no-fund las-js >/dev/null 2>&1) ||
        { echo unavailable; exit 3; }
fi
for f in "$@"; do
    NODE_PATH="$cache/node_modules" node -e '
const { Las } = require("las-js");
const fs = require("fs");
(async () => {
  const las = new Las(fs.readFileSync(process.argv[1], "latin1"), { loadFile: false });
  const curves = Object.keys(await las.curveParams()).length;
  const data = await las.data();
  const widths = new Set(data.map((r) => r.length));
  console.log(`${process.argv[1]} curves ${curves} rows ${data.length} widths ${[...widths].join(",")}`);
})().catch((e) => { console.log(`${process.argv[1]} ERROR ${e.message || e}`); process.exit(1); });
' "$f"
done
