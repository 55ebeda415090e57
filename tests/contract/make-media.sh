#!/bin/sh
# Makes the media that the sound tests play: make-media.sh FOLDER
set -eu
folder=$1
[ -e "$folder/complete" ] && exit 0
mkdir -p "$folder/folder.mp3"
tone() { # name, frequency, seconds, further options
    name=$1 frequency=$2 seconds=$3
    shift 3
    ffmpeg -loglevel error -nostdin -y -f lavfi -i "sine=frequency=$frequency:duration=$seconds,volume=6" -ac 2 "$@" \
        "$folder/$name"
}
tone plain.wav 440 4
tone tagged.mp3 660 4 -metadata title="Tone with a title" -b:a 128k
tone tagged.flac 880 4 -metadata title="Ein längerer Ton"
tone tagged.ogg 550 4 -metadata title="Ogg tone"
tone short.wav 500 0.3
tone long.wav 500 60
tone long.mp3 500 60 -b:a 128k
tone "$(printf 'odd name #1 100%% caf\351.wav')" 440 1
tone first.wav 1000 1.5
# Lengths at which the engine by itself would notice the end late.
for ending in wav mp3 ogg opus flac m4a; do
    case $ending in mp3 | opus | m4a) frequency=2000 ;; *) frequency=1000 ;; esac
    tone "queue.$ending" $frequency 1.53
done
tone full.mp3 440 3 -b:a 128k
head -c 9000 "$folder/full.mp3" >"$folder/cut.mp3"
head -c 44 "$folder/plain.wav" >"$folder/header.wav"
head -c 20000 /dev/urandom >"$folder/garbage.mp3"
: >"$folder/empty.mp3"
ffmpeg -loglevel error -nostdin -y -f lavfi -i "testsrc=size=160x120:rate=15:duration=2" \
    -f lavfi -i "sine=frequency=300:duration=2" -c:v mpeg4 -c:a mp3 "$folder/moving.avi"
ffmpeg -loglevel error -nostdin -y -i "$folder/moving.avi" -c:v mpeg4 -c:a aac "$folder/whole.mp4"
head -c 3000 "$folder/whole.mp4" >"$folder/cut.mp4" # its index is at the end, and gone
touch "$folder/complete"
