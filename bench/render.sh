#!/bin/sh
# Rendering a score to WAV beside the peers' rendering of the MIDI file of the same score:
#   bench/render.sh [BIN] [SCORE] [SOUNDFONT]
# Wall time and peak memory of five runs each, in turn, and the ratio of the medians.
set -e
here=$(cd "$(dirname "$0")/.." && pwd)
bin=${1:-$here/build/release/bin}
score=${2:-$here/src/resources/songs/market-street.sng}
font=${3:-/usr/share/sounds/sf2/TimGM6mb.sf2}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$bin/velorin-convert" "$score" -o "$work/song.mid"
python3 - "$bin" "$score" "$font" "$work" <<'PY'
import os, shutil, statistics, subprocess, sys, time

bin, score, font, work = sys.argv[1:]
ours = [bin + "/velorin-convert", score, "--soundfont", font, "--rate", "44100", "-o", work + "/a.wav"]
peers = {"fluidsynth -F": ["fluidsynth", "-q", "-ni", "-F", work + "/b.wav", "-T", "wav", "-r", "44100", font, work + "/song.mid"]}
if shutil.which("timidity"):
    peers["timidity"] = ["timidity", "-Ow", "-s", "44100", "-x", "soundfont " + font, "-o", work + "/c.wav",
                         work + "/song.mid"]


def run(command):
    start = time.monotonic()
    child = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    if status != 0:
        sys.exit("failed: " + " ".join(command))
    return time.monotonic() - start, usage.ru_maxrss / 1024, usage.ru_utime + usage.ru_stime


def seconds(wav):
    return (os.path.getsize(wav) - 44) / 4 / 44100


commands = {"velorin-convert": ours, **peers}
rows = {name: [] for name in commands}
for _ in range(5):
    for name, command in commands.items():
        rows[name].append(run(command))
for (name, runs), wav in zip(rows.items(), ("a.wav", "b.wav", "c.wav")):
    wall, memory, cpu = (statistics.median(column) for column in zip(*runs))
    length = seconds(os.path.join(work, wav))
    print(f"{name:16} wall {wall:.3f} s  cpu {cpu:.3f} s  peak {memory:.1f} MiB  "
          f"sound {length:.1f} s  {length / wall:.0f} x real time")
medians = [statistics.median(r[0] for r in runs) for runs in rows.values()]
print(f"wall, ours / peer: {medians[0] / medians[1]:.3f}")
PY
