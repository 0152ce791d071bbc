#!/bin/sh
# Runs every fuzz target of a fuzz build for the given number of seconds each. The corpus grows in the
# build folder; an input that crashes or hangs a target is saved under fuzz/regressions/TARGET, where
# the test suite replays it from then on. Exits non-zero when any target found something.
set -u
build_dir=$1
seconds=$2
top=$(cd "$(dirname "$0")/.." && pwd)

status=0
for target in "$build_dir"/fuzz/*_fuzzer; do
  name=$(basename "$target")
  corpus="$build_dir/corpus/$name"
  findings="$top/fuzz/regressions/$name"
  mkdir -p "$corpus" "$findings"
  echo "== $name: $seconds s"
  if ! "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -max_len=16384 \
      -print_final_stats=1 -artifact_prefix="$findings/" "$corpus" "$top/fuzz/corpus/$name"; then
    echo "$name found a failing input; it is in $findings" >&2
    status=1
  fi
  # A folder with nothing in it would leave git nothing to keep.
  rmdir "$findings" 2>/dev/null || true
done
exit $status
