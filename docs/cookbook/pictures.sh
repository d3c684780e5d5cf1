#!/usr/bin/env bash
# docs/cookbook/pictures.sh LIBRARY: draws the pictures of the pages anew, with gnuplot.
set -euo pipefail
folder=$(cd "$(dirname "$0")" && pwd)
library=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
for program in signals spectrum meter lowpass; do
  cc -std=c11 -O2 -I"$folder/../../include" "$folder/$program.c" "$library" -lsndfile -lm \
    -Wl,-rpath,"$(dirname "$library")" -o "$program"
done
./signals
./spectrum tones.wav > tones.txt
./lowpass tones.wav low.wav 1500
./spectrum low.wav > low.txt
./meter dial.wav | sed 's/-inf/-100/g' | awk '{print $1, $4, $7}' > meter.txt

style='set term svg size 720,320 font "DejaVu Sans,12" background "white"
set grid lc rgb "#dddddd"; set border 3 lc rgb "#666666"; set tics nomirror; set key top right
set style line 1 lc rgb "#1b6ca8" lw 1.5; set style line 2 lc rgb "#c8553d" lw 1.5
set xlabel "hertz"; set ylabel "decibels"; set yrange [-120:0];'
gnuplot > "$folder/spectrum.svg" <<< "$style
plot 'tones.txt' with lines ls 1 title 'tones.wav'"
gnuplot > "$folder/lowpass.svg" <<< "$style
plot 'tones.txt' with lines ls 1 title 'before', 'low.txt' with lines ls 2 title 'after a low-pass at 1500 Hz'"
gnuplot > "$folder/meter.svg" <<< "$style
set xlabel 'seconds'; set yrange [-40:0]; set xrange [0:1]; set style fill solid
bar(y) = y < -40 ? -40 : y
plot 'meter.txt' using (\$1+0.05):(-40):(\$1+0.01):(\$1+0.09):(-40):(bar(\$2)) with boxxyerror ls 2 title 'peak', \
  '' using (\$1+0.05):(-40):(\$1+0.01):(\$1+0.09):(-40):(bar(\$3)) with boxxyerror ls 1 title 'rms'"
