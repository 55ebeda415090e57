#!/bin/sh
# Runs a command beside a sound server of its own that plays into nothing: with-sound.sh COMMAND [ARGUMENT...]
# The command finds test media in $ZVR_TEST_MEDIA, and the sound to record at the source null.monitor.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
private=$(mktemp -d /tmp/zvr-sound.XXXXXX)
mkdir -m 700 "$private/home" "$private/run"
export ZVR_TEST_SOUND="$private"
: "${ZVR_TEST_MEDIA:=$private/media}"
export ZVR_TEST_MEDIA
sh "$here/make-media.sh" "$ZVR_TEST_MEDIA"

cat >"$private/default.pa" <<END
load-module module-native-protocol-unix auth-anonymous=1 socket=$private/socket
load-module module-null-sink sink_name=null
set-default-sink null
END
cat >"$private/asound.conf" <<END
</usr/share/alsa/alsa.conf>
pcm.!default { type pulse }
ctl.!default { type pulse }
END
# Without a bus: on the bus of a desktop another server may hold the name.
env -u DBUS_SESSION_BUS_ADDRESS -u DISPLAY HOME="$private/home" XDG_RUNTIME_DIR="$private/run" pulseaudio -n -F "$private/default.pa" --daemonize=no \
    --exit-idle-time=-1 --disable-shm=yes --use-pid-file=no >"$private/log" 2>&1 &
server=$!
listener=
trap 'kill $listener $server 2>/dev/null || true; wait $server 2>/dev/null || true; rm -rf "$private"' EXIT INT TERM
export PULSE_SERVER="unix:$private/socket"
export ALSA_CONFIG_PATH="$private/asound.conf"
patiently() { # COMMAND...
    tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        if [ $tries -gt 100 ]; then
            echo "with-sound.sh: the sound server does not start:" >&2
            cat "$private/log" >&2
            exit 1
        fi
        sleep 0.1
    done
}
patiently pactl info
# With nobody listening the sink takes two seconds of sound in one gulp, and short items end before their time.
parec -d null.monitor --latency-msec=20 >/dev/null 2>&1 &
listener=$!
patiently sh -c 'pactl list short source-outputs | grep -q .'
sleep 2 # until the gulp that it took before is over
"$@"
