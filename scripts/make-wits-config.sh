#!/usr/bin/env bash
# Writes resources/WITSconfig_V10.txt from the public WITS level 0 item table.
# The workstation reads at most 250 lines of it, comments included, so it
# carries the records the workstation meets on a rig.
set -euo pipefail
cd "$(dirname "$0")/.."
src=${1:-../shared/data/wits-items.tsv}
out=resources/WITSconfig_V10.txt
{
  printf "' WITS level 0 item names: code, one blank, name.\r\n"
  printf "' Records: 01 time based drilling, 07 survey, 08 MWD formation evaluation,\r\n"
  printf "' 11 mud tank volumes, 12 chromatograph, 18 drill stem testing, and from 04 the\r\n"
  printf "' tripping depths the workstation reads (0408, 0410, 0414).\r\n"
  awk -F'\t' '/^(01|07|08|11|12|18)[0-9][0-9]\t/ || /^04(08|10|14)\t/ { printf "%s %s\r\n", $1, $2 }' "$src" | sort
} > "$out"
echo "$(wc -l < "$out") lines in $out"
