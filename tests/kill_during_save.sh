#!/usr/bin/env bash
# Kills `scltool resave` at random moments of its save and checks that the target is then
# always either the old file or the new one, whole, never a mix; and that the next save that
# runs to its end leaves no temporary file behind.
# Usage: tests/kill_during_save.sh path/to/scltool [rounds [seconds]]
set -euo pipefail

scltool=$1
rounds=${2:-150}
seconds=${3:-12}  # the rounds stop early when they take longer than this
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The new content: the bytes a save of the sample writes.
"$scltool" sample "$work/big.scl" 2030 6 15 >/dev/null
"$scltool" resave "$work/big.scl" "$work/new.scl" >/dev/null
# The old content: another schedule, so that old and new differ.
"$scltool" sample "$work/old.scl" 1999 1 2 >/dev/null
if cmp -s "$work/old.scl" "$work/new.scl"; then
  echo "old and new content are the same; the check would prove nothing" >&2
  exit 1
fi

# How long one save takes, in microseconds, the quickest of three: the kills fall within it.
span=
for _ in 1 2 3; do
  cp "$work/old.scl" "$work/out.scl"
  start=$(date +%s%N)
  "$scltool" resave "$work/big.scl" "$work/out.scl" >/dev/null
  took=$((($(date +%s%N) - start) / 1000 + 1))
  if [ -z "$span" ] || [ "$took" -lt "$span" ]; then span=$took; fi
done

# A pause without starting a process, so that the kill comes when it is meant to.
pause() { read -rt "$1" <> <(:) || true; }

old_seen=0
new_seen=0
rounds_run=0
SECONDS=0
while ((rounds_run < rounds && SECONDS < seconds)); do
  cp "$work/old.scl" "$work/out.scl"
  "$scltool" resave "$work/big.scl" "$work/out.scl" >/dev/null 2>&1 &
  pid=$!
  delay=$(((RANDOM * 32768 + RANDOM) % span))
  pause "$(printf '%d.%06d' $((delay / 1000000)) $((delay % 1000000)))"
  kill -KILL "$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
  if cmp -s "$work/out.scl" "$work/old.scl"; then
    old_seen=$((old_seen + 1))
  elif cmp -s "$work/out.scl" "$work/new.scl"; then
    new_seen=$((new_seen + 1))
  else
    echo "round $rounds_run: the target is neither the old nor the new file" >&2
    exit 1
  fi
  rounds_run=$((rounds_run + 1))
done
left=$(find "$work" -name 'out.scl.saving-*' | wc -l)

"$scltool" resave "$work/big.scl" "$work/out.scl" >/dev/null
cmp "$work/out.scl" "$work/new.scl"
if [ -n "$(find "$work" -name 'out.scl.saving-*')" ]; then
  echo "a save that ran to its end left temporary files behind" >&2
  exit 1
fi
echo "$rounds_run kills: $old_seen old, $new_seen new, $left temporary files left and then removed"
