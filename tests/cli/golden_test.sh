#!/usr/bin/env bash
# Checks one golden schedule file, NAME.scl, against what scltool reads from it and writes back:
# the dump and the info as NAME.dump.json and NAME.info.txt beside it hold them, the same dump
# after a resave, and the resaved bytes as NAME.saved.scl holds them (NAME.scl itself when there
# is none). With --update it writes NAME.dump.json and NAME.info.txt from scltool instead. A NAME
# that ends in _932 holds Japanese texts: scltool reads and writes it in code page 932.
# Usage: tests/cli/golden_test.sh [--update] path/to/scltool path/to/NAME.scl
set -euo pipefail

update=false
if [ "$1" = --update ]; then
  update=true
  shift
fi
scltool=$(realpath "$1")
cd "$(dirname "$2")"
name=$(basename "$2" .scl)
page=1252
if [[ $name == *_932 ]]; then page=932; fi
scl() { "$scltool" "$@" --code-page $page; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The dump with each year and each row on a line of its own, for a readable difference.
dump() {
  scl dump "$1" | sed 's/\([[,]\)\({"\(year\|Day\)"\)/\1\n\2/g'
}

if $update; then
  dump "$name.scl" >"$name.dump.json"
  scl info "$name.scl" >"$name.info.txt"
  exit 0
fi

status=0
dump "$name.scl" >"$work/dump.json"
diff -u "$name.dump.json" "$work/dump.json" || status=1
scl info "$name.scl" >"$work/info.txt"
diff -u "$name.info.txt" "$work/info.txt" || status=1

scl resave "$name.scl" "$work/saved.scl"
expected=$name.scl
if [ -e "$name.saved.scl" ]; then expected=$name.saved.scl; fi
if ! cmp -s "$expected" "$work/saved.scl"; then
  echo "resaved bytes differ from $expected (offset, expected, resaved):"
  cmp -l "$expected" "$work/saved.scl" | head -20 || true
  status=1
fi
dump "$work/saved.scl" | diff -u --label "$name.dump.json" --label "dump after resave" \
  "$name.dump.json" - || status=1
exit $status
