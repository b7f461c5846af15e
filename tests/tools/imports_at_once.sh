#!/usr/bin/env bash
# Imports of several tetrodes into one folder at once, and imports that are stopped: every file is whole, what a
# program reports is true, and no temporary file is left.
#   imports_at_once.sh PALLOMIR_CLI
set -u
cli=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1

fail() { echo "$*"; exit 1; }
body() { sed '1,/^# End of header/d' "$1"; }
no_leftovers() { [ -z "$(find "$1" -name '*~' -o -name '.pallomir*')" ] || fail "left behind: $(find "$1" -type f)"; }

"$cli" sample made --spikes 2000 >made.txt 2>&1 || fail "$(cat made.txt)"
for tetrode in 1 2 3 4; do cp made/raw/TT1.Ntt TT$tetrode.Ntt; done
cp made/raw/VT1.Nvt .

import() { "$cli" import --spikes "TT$1.Ntt" --video VT1.Nvt --pixels-per-cm "$2" --out "$3" >"$3.$1.said" 2>&1; }

# Four tetrodes with the same video and options: all imports succeed.
for round in $(seq 8); do
  out=same$round
  for tetrode in 1 2 3 4; do import $tetrode 4 $out & pids[tetrode]=$!; done
  for tetrode in 1 2 3 4; do wait ${pids[tetrode]} || fail "round $round: $(cat $out.$tetrode.said)"; done
  cmp -s <(body $out/Pos.p) <(body made/Pos.p) || fail "round $round: Pos.p is another"
  for tetrode in 1 2 3 4; do
    cmp -s <(body $out/TT$tetrode/TT$tetrode.Ntt.parms) <(body made/TT1/TT1.Ntt.parms) || fail "parameters of $tetrode"
    cmp -s $out/TT$tetrode/TT$tetrode.waveforms made/TT1/TT1.waveforms || fail "waveforms of $tetrode"
  done
  no_leftovers $out
done

# Two scales for the same folder: one of them wins, and the other import reports it.
for round in $(seq 8); do
  out=other$round
  import 1 4 $out & one=$!
  import 2 5 $out & two=$!
  wait $one; first=$?
  wait $two; second=$?
  [ $((first + second)) = 1 ] || fail "round $round: $first and $second; $(cat $out.?.said)"
  grep -q "Pos.p already exists" $out.?.said || fail "round $round: $(cat $out.?.said)"
  scale=$([ $first = 0 ] && echo 4 || echo 5)
  body $out/Pos.p | head -1 | grep -q "PixelsPerCm,$scale" || fail "round $round: another scale than $scale"
  no_leftovers $out
done

# Stopped while it writes.
"$cli" sample large --spikes 60000 >made.txt 2>&1 || fail "$(cat made.txt)"
"$cli" import --spikes large/raw/TT1.Ntt --video VT1.Nvt --out ended >ended.said 2>&1 & process=$!
while [ -z "$(find ended/TT1 -type f 2>/dev/null)" ]; do
  kill -0 $process 2>/dev/null || fail "it ended by itself: $(cat ended.said)"
done
kill -TERM $process
wait $process
[ $? = 130 ] || fail "not ended: $(cat ended.said)"
[ -z "$(find ended -type f)" ] || fail "left behind: $(find ended -type f)"
echo "no import got into the way of another"
