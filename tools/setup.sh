#!/usr/bin/env bash
# Installs the Debian packages that are missing. Asks for root only when something is, and waits while somebody else
# installs.
#   tools/setup.sh GROUP...      groups: build run screen test format contract fuzz bench
set -euo pipefail

build=(
    g++ cmake ninja-build pkg-config ccache
    qt6-base-dev qt6-base-dev-tools libvlc-dev libasound2-dev libexpat1-dev libicu-dev
    libxcb1-dev libxcb-randr0-dev libxcb-res0-dev libice-dev
    libxcb-xtest0-dev libxcb-xkb-dev libxkbcommon-dev libxkbcommon-x11-dev
    librsvg2-bin python3 ffmpeg sox libsox-fmt-base
    fonts-roboto-unhinted fonts-liberation # the skins' pictures are drawn with them too
)
run=(
    libvlc5 libvlc-bin vlc-plugin-base vlc-plugin-video-output libasound2-plugins
    vlc-plugin-fluidsynth timgm6mb-soundfont # instruments for MIDI files
    fonts-roboto-unhinted fonts-liberation
    x11-xkb-utils # the keyboard adds a layout with it
    qt6-image-formats-plugins # pictures in WebP and TIFF
    fonts-wqy-microhei fonts-tlwg-loma-otf fonts-noto-color-emoji # titles in Chinese, Japanese, Korean, Thai; emoji
)
# A display and a sound card for a machine that has none: tools/screen.
screen=(
    xvfb xauth openbox xdotool wmctrl x11-utils x11-xserver-utils imagemagick procps
    pulseaudio pulseaudio-utils sox libsox-fmt-base dbus-daemon
)
contract=("${screen[@]}" picom tint2 dvdauthor python3-dbusmock xterm xinput) # tests on such a display
test=(libgtest-dev libgmock-dev)
format=(clang-format-14)
fuzz=(clang-14 libclang-rt-14-dev)
bench=(libbenchmark-dev libjpeg-turbo-progs imagemagick)
groups=(build run screen test format contract fuzz bench)

die() {
    echo "setup: $*" >&2
    exit 1
}

wanted=()
for group in "$@"; do
    [[ " ${groups[*]} " == *" $group "* ]] || die "there is no group '$group'; there are ${groups[*]}"
    declare -n packages=$group
    wanted+=("${packages[@]}")
done
[ ${#wanted[@]} -gt 0 ] || die "name at least one group: ${groups[*]}"

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "setup: this is no Debian; these packages, or what stands for them here, are needed: ${wanted[*]}" >&2
    exit 0
fi

# dpkg-query fails where it has never heard of a package: on a bare machine that is most of them.
present=$({ dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${wanted[@]}" 2>/dev/null || true; } |
    awk '$2 == "installed" {print $1}')
missing=$(printf '%s\n' "${wanted[@]}" | sort -u | grep -vxF -e "$present" || true)
[ -n "$missing" ] || exit 0

echo "setup: installing" $missing
root=()
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || die "packages are missing and there is no sudo; as root: apt-get install" $missing
    root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# A fresh machine installs its own updates just now. Not every lock is waited for by the package manager itself.
patience=600 # seconds
aptGet() {
    local begin=$SECONDS
    until "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=$patience "$@" </dev/null >"$log" 2>&1; do
        grep -qE 'Could not get lock|Unable to (acquire|lock)' "$log" && [ $((SECONDS - begin)) -lt $patience ] || return 1
        [ -n "${waits:-}" ] || echo "setup: another program installs packages, waiting for it"
        waits=1
        sleep 3
    done
}
# shellcheck disable=SC2086  # one word a package
if ! { aptGet update && aptGet install -y --no-install-recommends $missing; }; then
    tail -n 30 "$log" >&2
    die "could not install:" $missing
fi
