# Shared by the benchmark scripts, which source it after setting `runs` (how many runs) and
# `work` (a scratch folder).

median() { sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }

# measure FRESH COMMAND...: runs the command `runs` times, FRESH (a file, or "-" for none)
# removed before each run; prints "median_ms median_peak_kb" (wall time, peak memory).
measure() {
  local fresh=$1 times=() peaks=() start end
  shift
  for ((i = 0; i < runs; i++)); do
    [ "$fresh" = - ] || rm -f "$fresh"
    start=$(date +%s%N)
    /usr/bin/time -f %M -o "$work/peak" "$@" >/dev/null
    end=$(date +%s%N)
    times+=($(((end - start) / 1000000)))
    peaks+=("$(tail -n 1 "$work/peak")")
  done
  echo "$(printf '%s\n' "${times[@]}" | median) $(printf '%s\n' "${peaks[@]}" | median)"
}
