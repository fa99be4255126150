# A virtual desktop of its own, for the demonstrations: they read this file, with the folder of the built programs
# as their first argument. It ends with them. Pictures are saved in $QUORVANE_PICTURES, if that is set.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
programs=$1
scratch=$(mktemp -d)
# The programs end before their folders go.
trap 'kill $(jobs -p) 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$scratch" || { sleep 1; rm -rf "$scratch"; }' EXIT

export HOME=$scratch XDG_CONFIG_HOME=$scratch/config XDG_DATA_HOME=$scratch/data XDG_CACHE_HOME=$scratch/cache
export XDG_RUNTIME_DIR=$scratch/run
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset WAYLAND_DISPLAY SESSION_MANAGER DBUS_SESSION_BUS_ADDRESS

# Waits until a command succeeds; ends the demo when it does not in half a minute.
until_true() {
  for _ in $(seq 300); do
    if "$@" >/dev/null 2>&1; then return; fi
    sleep 0.1
  done
  echo "this never came true: $*" >&2
  exit 1
}

mkfifo "$scratch/display"
Xvfb -displayfd 5 -screen 0 1100x680x24 -nolisten tcp -noreset 5>"$scratch/display" 2>"$scratch/xvfb.log" &
read -r number <"$scratch/display"
export DISPLAY=:$number
coproc bus { exec dbus-daemon --session --nofork --nopidfile --print-address 2>"$scratch/bus.log"; }
read -r DBUS_SESSION_BUS_ADDRESS <&"${bus[0]}"
export DBUS_SESSION_BUS_ADDRESS

setxkbmap -rules evdev -model pc105 -layout us,ru,de
xsetroot -solid '#3b5368' 2>/dev/null || true
# The launcher is opened by a shortcut of the window manager's, as users do it.
sed 's|</keyboard>|<keybind key="W-space"><action name="Execute"><command>rofi -show run</command></action></keybind>&|' \
  /etc/xdg/openbox/rc.xml >"$scratch/openbox.xml"
openbox --sm-disable --config-file "$scratch/openbox.xml" >"$scratch/openbox.log" 2>&1 &
until_true sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep 0x'
trayer --edge bottom --align right --widthtype request --height 28 --expand true >"$scratch/trayer.log" 2>&1 &
defaults() { "$programs/quorvane-defaults" "$@"; }
defaults write standard NotNeedRemindForAutoStartAtLogin -bool true

start_agent() {
  "$programs/quorvane" &
  agent=$!
}
end_agent() {
  kill -TERM "$agent"
  wait "$agent" || { echo "Quorvane did not end cleanly" >&2; exit 1; }
}

# A rule counts once it has been changed while the agent runs: the agent then copies it to where it looks. Until
# the agent is ready, nobody sees the change, and writing the same again is none.
try_rule() {
  defaults dict-remove standard autoInput "$1"
  defaults dict-add standard autoInput "$1" -xml "<dict><key>id</key><string>$2</string></dict>"
  sleep 0.1
  defaults read shared autoInput | grep -q "$1"
}
rule() { until_true try_rule "$1" "$2"; }

# Plays steps and shows them in the terminal, too.
shown=0
play() { "$programs/quorvane-demo" "$@" | tee -a "$scratch/table" || shown=1; }
screenshot() {
  import -window root "${QUORVANE_PICTURES:-$root}/$1"
  echo "screenshot: $1"
}
