#!/usr/bin/env bash
# Kills a program that keeps writing files 200 times at random moments; each time all files must be there and whole.
#   kill_writer.sh KEEP_WRITING boundaries|clusters
set -u
writer=("$1" "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# The files exist before the first kill.
"${writer[@]}" "$folder" >"$folder/writes" & process=$!
while [ ! -s "$folder/writes" ]; do
  kill -0 $process 2>/dev/null || { echo "the writer ended by itself"; exit 1; }
  sleep 0.01
done
kill -9 $process; wait $process 2>/dev/null

for round in $(seq 200); do
  "${writer[@]}" "$folder" >/dev/null & process=$!
  sleep "0.0$((RANDOM % 40 + 10))"
  kill -9 $process; wait $process 2>/dev/null
  "${writer[@]}" "$folder" check || { echo "round $round"; exit 1; }
done
echo "200 kills, whole files each time"
