#!/usr/bin/env bash
# Installs the Debian packages that are missing. Asks for root only when something is.
#   tools/setup.sh GROUP...      groups: build run screen test
set -euo pipefail

build=(
    g++ cmake ninja-build pkg-config ccache
    qt6-base-dev qt6-base-dev-tools libvlc-dev libasound2-dev libexpat1-dev libicu-dev
    libxcb1-dev libxcb-randr0-dev libxcb-ewmh-dev libxcb-icccm4-dev libxcb-res0-dev
    librsvg2-bin python3 ffmpeg sox libsox-fmt-base
    fonts-roboto-unhinted fonts-liberation # the skins' pictures are drawn with them too
)
run=(
    libvlc5 libvlc-bin vlc-plugin-base vlc-plugin-video-output libasound2-plugins
    vlc-plugin-fluidsynth timgm6mb-soundfont # instruments for MIDI files
    fonts-roboto-unhinted fonts-liberation
    fonts-wqy-microhei fonts-tlwg-loma-otf fonts-noto-color-emoji # titles in Chinese, Japanese, Korean, Thai; emoji
)
# A display and a sound card for a machine that has none: tools/screen.
screen=(
    xvfb xauth openbox xdotool wmctrl x11-utils x11-xserver-utils imagemagick procps
    pulseaudio pulseaudio-utils sox libsox-fmt-base dbus-daemon
)
test=(
    "${screen[@]}" picom tint2
    libgtest-dev libgmock-dev libbenchmark-dev clang-14 clang-format-14 libclang-rt-14-dev
)

die() {
    echo "setup: $*" >&2
    exit 1
}

wanted=()
for group in "$@"; do
    case $group in
        build | run | screen | test)
            declare -n packages=$group
            wanted+=("${packages[@]}")
            ;;
        *) die "there is no group '$group'; there are build, run, screen and test" ;;
    esac
done
[ ${#wanted[@]} -gt 0 ] || die "name at least one group: build, run, screen, test"

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
aptGet() { "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q "$@" </dev/null; }
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# shellcheck disable=SC2086  # one word a package
if ! { aptGet update && aptGet install -y --no-install-recommends $missing; } >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    die "could not install:" $missing
fi
