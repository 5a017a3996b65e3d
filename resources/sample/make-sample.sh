#!/usr/bin/env bash
# Makes sample.mp3, the sound that the tour opens: a minute of our own music in five sections, with a short rest
# between them, and sample.cuts, the first sample of sections two to five.
#
#   make-sample.sh [FOLDER]      FOLDER: where the two files go, default: beside this script
#
# Needs sox, espeak-ng and lame. Everything is synthesised from the notes below, so it is free of rights.
set -euo pipefail
export LC_ALL=C.UTF-8
target=$(cd "${1:-$(dirname "${BASH_SOURCE[0]}")}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

rate=44100
eighth=13230                                 # samples, 0.3 seconds; eight of them are a bar
bar=$((8 * eighth))
shape=(-r "$rate" -b 16)
sox() { command sox -R -V1 "$@"; }           # -R: seeded noise and dither, so that each run gives the same sound
warm=(compand "0.01,0.2" "6:-70,-70,-40,-26,-12,-9,0,-5" 0 -90 0.05)   # quiet passages nearer to the loud ones
half() { echo $(($1 - 12)); }                # an octave down

# Notes are half tones from A above middle C. Four chords carry the whole piece: A minor, F, C, G.
roots=(-12 -16 -9 -14) thirds=(-9 -12 -5 -10) fifths=(-5 -9 -2 -7)

# ---------------------------------------------------------------- instruments

pluckedBar() {                               # FILE CHORD: eight plucked eighths that ring on, panned left to right
    local r=${roots[$2]} t=${thirds[$2]} f=${fifths[$2]}
    sox -n "${shape[@]}" "$1" synth ${bar}s pluck %"$r" pluck %"$f" pluck %$((r + 12)) pluck %$((t + 12)) \
        pluck %$((f + 12)) pluck %$((t + 12)) pluck %$((r + 12)) pluck %"$f" \
        delay 0 0.3 0.6 0.9 1.2 1.5 1.8 2.1 \
        remix 1v0.5,2v0.5,3v0.4,4v0.3,5v0.2,6v0.2,7v0.3,8v0.4 1v0.5,2v0.2,3v0.3,4v0.4,5v0.5,6v0.4,7v0.3,8v0.3
}

padBar() {                                   # FILE CHORD: a soft held chord that swells, wide in stereo
    local r=${roots[$2]} t=${thirds[$2]} f=${fifths[$2]}
    sox -n "${shape[@]}" "$1" synth 3.0 sawtooth %"$r" sawtooth %"$r".07 sawtooth %"$t" sawtooth %"$f" \
        sawtooth %"$f".06 sine %"$(half "$r")" remix 1v0.3,3v0.3,5v0.3,6v0.5 2v0.3,3v0.3,4v0.3,6v0.5 \
        lowpass -1 1100 lowpass -1 2500 fade q 0.7 3.0 0.7
}

bassBar() {                                  # FILE CHORD: eighths on the root, the fifth before the change
    local low fifth
    low=$(half "$(half "${roots[$2]}")") fifth=$(half "$(half "${fifths[$2]}")")
    sox -n "${shape[@]}" -c 2 low.wav synth 0.3 triangle %"$low" fade q 0.005 0.3 0.12
    sox -n "${shape[@]}" -c 2 fifth.wav synth 0.3 triangle %"$fifth" fade q 0.005 0.3 0.12
    sox low.wav low.wav low.wav low.wav low.wav low.wav fifth.wav fifth.wav "$1" lowpass 900
}

drumBar() {                                  # FILE: kick on one and three, snare on two and four, hats in eighths
    sox -n "${shape[@]}" -c 2 kick.wav synth 0.25 sine 140-45 fade q 0 0.25 0.2 pad 0 0.95
    sox -n "${shape[@]}" -c 2 snare.wav synth 0.18 whitenoise fade q 0 0.18 0.17 bandpass 1800 2000 pad 0.6 0.42
    sox -n "${shape[@]}" -c 2 hat.wav synth 0.05 whitenoise fade q 0 0.05 0.045 highpass 7000 pad 0 0.25
    sox hat.wav hat.wav hat.wav hat.wav hats.wav
    sox -m -v 1.0 kick.wav -v 0.8 snare.wav -v 0.25 hats.wav half.wav
    sox half.wav half.wav "$1"
}

bell() {                                     # FILE NOTE PAN: struck metal; the higher partials die first
    local pan=(1v0.8 1v0.35)
    if [[ $3 == right ]]; then pan=(1v0.35 1v0.8); fi
    sox -n "${shape[@]}" -c 1 p1.wav synth 3.2 sine %"$2" fade l 0.004 3.2 3.1
    sox -n "${shape[@]}" -c 1 p2.wav synth 1.6 sine %$(($2 + 12)) fade l 0.004 1.6 1.5
    sox -n "${shape[@]}" -c 1 p3.wav synth 0.7 sine %$(($2 + 19)).3 fade l 0.002 0.7 0.65
    sox -m -v 0.6 p1.wav -v 0.25 p2.wav -v 0.15 p3.wav "$1" remix "${pan[@]}"
}

melody() {                                   # FILE NOTE:EIGHTHS...: a singing line, one note after the other
    local out=$1 note length files=()
    shift
    for note in "$@"; do
        length=$((eighth * ${note#*:}))s
        sox -n "${shape[@]}" -c 2 "note-${#files[@]}.wav" synth "$length" triangle %"${note%:*}" \
            synth "$length" sine mix %$((${note%:*} + 12)) fade q 0.02 "$length" 0.1
        files+=("note-${#files[@]}.wav")
    done
    sox "${files[@]}" "$out" tremolo 5.5 25 lowpass 5000 reverb 35
}

inTurn() {                                   # FILE INSTRUMENT CHORD...: bars one after the other, each ringing on
    local out=$1 instrument=$2 count=0 chord layers=()
    shift 2
    for chord in "$@"; do
        "$instrument" "bar-$count.wav" "$chord"
        sox "bar-$count.wav" "late-$count.wav" pad $((bar * count))s
        layers+=(-v 1 "late-$count.wav")
        count=$((count + 1))
    done
    sox -m "${layers[@]}" "$out"
}

# ---------------------------------------------------------------- the five sections

drumBar drums.wav
inTurn pads.wav padBar 0 1 2 3
inTurn plucked.wav pluckedBar 0 1 2 3
inTurn bass.wav bassBar 0 1 2 3
sox drums.wav drums4.wav repeat 3
song=(7:3 5:1 3:2 5:2  0:3 3:1 0:4  7:3 5:1 3:2 7:2  10:3 7:1 5:4)

# 1 A voice over quiet chords.
espeak-ng -v en-gb -s 138 -p 42 -w voice.wav \
    "Welcome to Quillon. Set a cut wherever a new part begins, give every part its title, and save them all."
sox voice.wav "${shape[@]}" -c 2 said.wav highpass 90 "${warm[@]}" gain -n -1 reverb 12 pad 1.2
sox -m -v 0.22 pads.wav -v 0.78 said.wav one.wav gain -n -2

# 2 Plucked strings alone.
sox plucked.wav two.wav "${warm[@]}" reverb 30 gain -n -3

# 3 The band, at full and even loudness.
melody song.wav "${song[@]}"
sox -m -v 0.50 plucked.wav -v 0.55 drums4.wav -v 0.45 bass.wav -v 0.30 song.wav three.wav \
    "${warm[@]}" gain -n -1.2

# 4 A few bells, each dying away.
layers=()
side=left
for strike in 0:3 1.2:7 2.4:12 4.2:10 4.8:7 6.6:5 7.8:3 9.0:0; do
    bell bell.wav "${strike#*:}" $side
    sox bell.wav "bell-${#layers[@]}.wav" pad "${strike%:*}"
    layers+=(-v 1 "bell-${#layers[@]}.wav")
    if [[ $side == left ]]; then side=right; else side=left; fi
done
sox -m "${layers[@]}" four.wav reverb 45 gain -n -2

# 5 Everything, from nothing to full, and a last chord.
inTurn finalPads.wav padBar 0 1 2 3 2 2
pluckedBar lastPluck.wav 2
sox lastPluck.wav "${shape[@]}" last.wav pad $((4 * bar))s
sox -m -v 0.45 finalPads.wav -v 0.40 plucked.wav -v 0.45 drums4.wav -v 0.35 bass.wav -v 0.22 song.wav -v 0.5 last.wav \
    five.wav "${warm[@]}" gain -n -1.2 fade q 8.5 $((6 * bar))s 5

# ---------------------------------------------------------------- laid end to end, with rests between

# Samples of each section with its rest. The rests differ as they do on a record; the sum is a minute.
lengths=(493920 502740 485100 516000 648240)
: >sample.cuts
start=0
sections=()
for name in one two three four five; do
    length=${lengths[${#sections[@]}]}
    if ((start > 0)); then echo "$start" >>sample.cuts; fi
    sox "$name.wav" "section-$name.wav" pad 0.25 9 trim 0 "${length}s" fade t 0.01 "${length}s" 0.8
    sections+=("section-$name.wav")
    start=$((start + length))
done
sox "${sections[@]}" sample.wav

lame --quiet -b 160 -q 2 --noreplaygain --add-id3v2 --id3v2-latin1 --tt "A minute of Quillon" --ta "Tonehaven" \
    --tl "Samples" --ty 2026 --tg Ambient --tc "Made with sox and espeak-ng" sample.wav sample.mp3
mv sample.mp3 sample.cuts "$target/"
echo "$target/sample.mp3: $start samples at $rate Hz, cut at $(paste -sd' ' "$target/sample.cuts")"
