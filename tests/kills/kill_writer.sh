#!/usr/bin/env bash
# Kills a program that keeps writing a boundaries file, 200 times at random moments; the file must be whole each time.
#   kill_writer.sh KEEP_WRITING
set -u
writer=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# The file exists before the first kill.
"$writer" "$folder" >"$folder/writes" & process=$!
while [ ! -s "$folder/writes" ]; do sleep 0.01; done
kill -9 $process; wait $process 2>/dev/null

for round in $(seq 200); do
  "$writer" "$folder" >/dev/null & process=$!
  sleep "0.0$((RANDOM % 40 + 10))"
  kill -9 $process; wait $process 2>/dev/null
  "$writer" "$folder" check || { echo "round $round"; exit 1; }
done
echo "200 kills, a whole file each time"
