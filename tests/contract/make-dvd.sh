#!/usr/bin/env bash
# Authors a film disc: a root menu with two buttons, which lead to two titles of three chapters, with two sound tracks.
#   tests/contract/make-dvd.sh FOLDER      makes FOLDER/video_ts
# The left half of the menu leads to the first title, which is blue, the right half to the second, which is green.
set -euo pipefail
mkdir -p "$1"
folder=$(cd "$1" && pwd)
[ ! -e "$folder/VIDEO_TS/VIDEO_TS.IFO" ] || exit 0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

film() { # NAME COLOUR SECONDS
    ffmpeg -loglevel error -nostdin -f lavfi -i "color=$2:s=720x576:r=25:d=$3" -f lavfi -i "sine=400:d=$3" \
        -f lavfi -i "sine=900:d=$3" -map 0 -map 1 -map 2 -target pal-dvd -b:v 1M -g 12 "$1.mpg"
}
film first blue 24
film second green 12
ffmpeg -loglevel error -nostdin -f lavfi -i "color=gray:s=720x576:r=25:d=2" -f lavfi -i "anullsrc=d=2" -target pal-dvd \
    -b:v 1M menu-plain.mpg

# What a chosen button lights up in, and the buttons' places.
convert -size 720x576 xc:none +antialias -fill none -stroke '#ff8000' -strokewidth 8 -draw 'rectangle 40,100 320,460' \
    -draw 'rectangle 400,100 680,460' -type palette PNG8:lit.png
convert -size 720x576 xc:none PNG8:dark.png
cat >buttons.xml <<XML
<subpictures><stream><spu force="yes" start="00:00:00.00" highlight="lit.png" select="lit.png">
<button name="one" x0="40" y0="100" x1="320" y1="460"/><button name="two" x0="400" y0="100" x1="680" y1="460"/>
</spu></stream></subpictures>
XML
spumux buttons.xml <menu-plain.mpg >menu.mpg 2>/dev/null

cat >disc.xml <<XML
<dvdauthor dest="$folder">
<vmgm><menus><pgc><pre>jump titleset 1 menu;</pre></pgc></menus></vmgm>
<titleset>
<menus><video format="pal"/><pgc entry="root"><vob file="menu.mpg" pause="inf"/>
<button name="one">jump title 1;</button><button name="two">jump title 2;</button></pgc></menus>
<titles><video format="pal"/><audio lang="en"/><audio lang="de"/>
<pgc><vob file="first.mpg" chapters="0,8,16"/><post>call menu;</post></pgc>
<pgc><vob file="second.mpg" chapters="0,4,8"/><post>call menu;</post></pgc></titles>
</titleset></dvdauthor>
XML
VIDEO_FORMAT=PAL dvdauthor -x disc.xml >dvdauthor.log 2>&1 || { cat dvdauthor.log >&2; exit 1; }
