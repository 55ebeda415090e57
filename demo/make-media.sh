#!/usr/bin/env bash
# Makes the sample media: a small evening of music, test signals, a few spoken lines and two short videos, all computed.
#   demo/make-media.sh FOLDER
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
target=${1:?the folder to fill}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
ffmpeg() { command ffmpeg -nostdin -hide_banner -loglevel error -y "$@"; }

# One bar of a plucked chord, its notes one after the other, over a soft bass of the first one.
bar() { # FILE SECONDS NOTE...
    local file=$1 seconds=$2 step delays=() synth=() i=0
    shift 2
    step=$(awk -v s="$seconds" -v n=$# 'BEGIN {print s / n}')
    for note in "$@"; do
        synth+=(pluck "$note")
        delays+=("$(awk -v s="$step" -v i=$i 'BEGIN {print s * i}')")
        i=$((i + 1))
    done
    sox -n -r 44100 "$work/plucks.wav" synth "$(awk -v s="$seconds" 'BEGIN {print s * 1.2}')" "${synth[@]}" \
        delay "${delays[@]}" remix - fade 0 "$seconds" 0.05 gain -n -6
    sox -n -r 44100 "$work/bass.wav" synth "$seconds" sine "$1" sine "$1" remix - fade 0.4 "$seconds" 0.6 gain -n -16
    sox -m "$work/plucks.wav" "$work/bass.wav" "$file"
}

# A piece from lines of notes, a bar each, in a room of its own.
piece() { # FILE SECONDS_A_BAR REVERB ROUNDS LINE...
    local file=$1 seconds=$2 reverb=$3 rounds=$4 bars=() number=0
    shift 4
    for line in "$@"; do
        # shellcheck disable=SC2086  # the notes of the line
        bar "$work/bar$number.wav" "$seconds" $line
        bars+=("$work/bar$number.wav")
        number=$((number + 1))
    done
    local all=()
    for ((round = 0; round < rounds; round++)); do all+=("${bars[@]}"); done
    sox "${all[@]}" -c 2 "$work/room.wav" reverb "$reverb" chorus 0.7 0.9 55 0.4 0.25 2 -t
    sox "$work/room.wav" "$file" fade 0.5 -0 3 gain -n -4
}

encode() { # SOURCE TARGET TITLE ARTIST ALBUM TRACK [ffmpeg options]
    ffmpeg -i "$1" -map_metadata -1 -metadata title="$3" -metadata artist="$4" -metadata album="$5" \
        -metadata track="$6" -metadata date=2024 "${@:7}" -id3v2_version 3 "$2"
}

speak() { # FILE VOICE TEXT
    ffmpeg -f lavfi -i "flite=voice=$2:text='$3'" -ar 22050 "$1"
}

cover() { # FOLDER SVG
    rsvg-convert -w 400 -h 400 "$2" -o "$work/cover.png"
    ffmpeg -i "$work/cover.png" -q:v 4 "$1/front.jpg"
}

drive="$target/Evening Drive" signals="$target/Test Signals" spoken="$target/Spoken" videos="$target/Videos"
rm -rf "$drive" "$signals" "$spoken" "$videos"
mkdir -p "$drive" "$signals" "$spoken" "$videos"

mp3=(-c:a libmp3lame -b:a 64k -ar 44100)
album=("The Idle Pistons" "Evening Drive")
piece "$work/1.wav" 2.4 60 3 "C3 G3 C4 E4 G4 E4" "A2 E3 A3 C4 E4 C4" "F2 C3 F3 A3 C4 A3" "G2 D3 G3 B3 D4 F4"
encode "$work/1.wav" "$drive/01 Ring Road.mp3" "Ring Road" "${album[@]}" 1 "${mp3[@]}"
piece "$work/2.wav" 3.2 80 2 "A2 E3 A3 C4 E4 A4" "D3 A3 D4 F4 A4 F4" "E3 B3 E4 G#4 B4 G#4" "A2 E3 C4 E4 A4 C5"
encode "$work/2.wav" "$drive/02 Wet Asphalt.mp3" "Wet Asphalt" "${album[@]}" 2 "${mp3[@]}"
piece "$work/3.wav" 1.8 40 4 "D3 A3 D4 F#4" "G2 D3 G3 B3" "A2 E3 A3 C#4" "D3 A3 F#4 A4"
encode "$work/3.wav" "$drive/03 Green Wave.mp3" "Green Wave" "${album[@]}" 3 "${mp3[@]}"
piece "$work/4.wav" 4.0 90 2 "E2 B2 E3 G3 B3 E4 G4 B4" "C3 G3 C4 E4 G4 C5 E5 G4" "D3 A3 D4 F#4 A4 D5 A4 F#4"
encode "$work/4.wav" "$drive/04 Café an der Straße.mp3" "Café an der Straße" "${album[@]}" 4 "${mp3[@]}"
piece "$work/5.wav" 2.0 70 3 "F3 A3 C4 F4" "C3 E3 G3 C4" "A#2 D3 F3 A#3" "F3 C4 F4 A4" "C3 G3 C4 E4"
encode "$work/5.wav" "$drive/05 Last Exit Home.wma" "Last Exit Home" "${album[@]}" 5 -c:a wmav2 -b:a 64k -ar 44100
cover "$drive" "$here/covers/evening-drive.svg"

tests=("zVR" "Test Signals")
sox -n -r 8000 -c 1 -b 16 "$signals/1 kHz.wav" synth 20 sine 1000 fade 0.02 20 0.02 gain -n -12
sox -n -r 44100 -c 2 "$work/n.wav" synth 30 pinknoise fade 0.1 30 0.1 gain -n -6
encode "$work/n.wav" "$signals/Pink Noise.mp3" "Pink Noise" "${tests[@]}" 2 -c:a libmp3lame -b:a 56k
sox -n -r 44100 -c 1 "$work/s.wav" synth 20 sine 30:15000 fade 0.1 20 0.1 gain -n -9
encode "$work/s.wav" "$signals/Sweep 30 Hz to 15 kHz.mp3" "Sweep 30 Hz to 15 kHz" "${tests[@]}" 3 -c:a libmp3lame -b:a 48k
speak "$work/l.wav" slt "Left speaker."
speak "$work/r.wav" slt "Right speaker."
speak "$work/b.wav" slt "Both speakers."
sox "$work/l.wav" "$work/l2.wav" remix 1 0 pad 0 1
sox "$work/r.wav" "$work/r2.wav" remix 0 1 pad 0 1
sox "$work/b.wav" "$work/b2.wav" remix 1 1 pad 0 1
sox "$work"/{l2,r2,b2,l2,r2,b2}.wav "$work/lr.wav" gain -n -3
encode "$work/lr.wav" "$signals/Left and Right.mp3" "Left and Right" "${tests[@]}" 4 -c:a libmp3lame -b:a 48k
cover "$signals" "$here/covers/test-signals.svg"

voice=("The Passenger" "Spoken")
speak "$work/w.wav" slt "Welcome. This is a car computer. Tap a button, and it does what the button says. Tap a folder, and it opens. \
Tap a song, and it plays. There is nothing else that you have to learn."
encode "$work/w.wav" "$spoken/Welcome.mp3" "Welcome" "${voice[@]}" 1 -c:a libmp3lame -b:a 40k
speak "$work/d.wav" awb "In four hundred metres, take the second exit at the roundabout. Then drive straight on until the sea. \
You have reached your destination when your feet are wet."
encode "$work/d.wav" "$spoken/Directions.mp3" "Directions" "${voice[@]}" 2 -c:a libmp3lame -b:a 40k
cover "$spoken" "$here/covers/spoken.svg"

ffmpeg -f lavfi -i "gradients=s=320x240:r=15:d=20:n=4:c0=0x0b1020:c1=0x1b5e4b:c2=0x6a3d9a:c3=0x0e7c86:speed=0.02" \
    -i "$work/2.wav" -t 20 -metadata title="Northern Lights" -c:v mpeg4 -q:v 6 -c:a libmp3lame -b:a 48k -ar 44100 \
    "$videos/Northern Lights.avi"
ffmpeg -f lavfi -i "testsrc2=s=352x288:r=25:d=20" -f lavfi -i "sine=440:r=44100:d=20,volume=0.25" -t 20 \
    -c:v mpeg1video -b:v 400k -c:a mp2 -b:a 64k -f mpeg "$videos/Test Picture.mpg"
