# SPDX-License-Identifier: LGPL-2.1-or-later
# shellcheck shell=bash
# A desktop for programs under Wine, all of it its own: virtual screen, window manager, tray host, sound sink, Wine
# prefix. Several can run at the same time. Source this file, then:
#   rig_start FOLDER [--no-sound] [--dpi N]   starts it, keeping everything in FOLDER; sets DISPLAY, WINEPREFIX, ...
#   rig_wine PROGRAM ARGUMENTS...             runs a Windows program in it
#   rig_stop                                  ends what was started, by process id

rig_pids=()
rig_wine_loader=/usr/lib/wine/wine64

rig_wait_for() { # SECONDS COMMAND...
  local left=$(($1 * 10)); shift
  until "$@" >/dev/null 2>&1; do
    left=$((left - 1)); [ "$left" -gt 0 ] || return 1
    sleep 0.1
  done
}

rig_start() {
  rig_folder=$(mkdir -p "$1" && cd "$1" && pwd); shift
  local sound=1 dpi=96
  while [ $# -gt 0 ]; do
    case $1 in
      --no-sound) sound=; shift ;;
      --dpi) dpi=$2; shift 2 ;;
      *) echo "rig: unknown option $1" >&2; return 2 ;;
    esac
  done
  export LANG=cs_CZ.UTF-8 LC_ALL=cs_CZ.UTF-8
  export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="winemenubuilder.exe=d;mscoree=d"
  export HOME=$rig_folder/home XDG_RUNTIME_DIR=$rig_folder/runtime WINEPREFIX=$rig_folder/prefix
  mkdir -p "$HOME" "$XDG_RUNTIME_DIR"; chmod 700 "$XDG_RUNTIME_DIR"
  rm -f "$rig_folder/display"
  # A path of a socket may have about 100 characters only: sound meets in a short folder.
  rig_socket_folder=$(mktemp -d /tmp/lumotune-rig.XXXXXX)
  Xvfb -displayfd 7 -screen 0 1280x800x24 -dpi "$dpi" -nolisten tcp 7>"$rig_folder/display" >"$rig_folder/xvfb.log" 2>&1 &
  rig_pids+=($!)
  rig_wait_for 20 test -s "$rig_folder/display" || { echo "rig: no virtual screen" >&2; return 1; }
  DISPLAY=:$(cat "$rig_folder/display"); export DISPLAY
  xsetroot -solid '#31465a' 2>/dev/null || true
  openbox >"$rig_folder/openbox.log" 2>&1 & rig_pids+=($!)
  trayer --edge bottom --align right --widthtype pixel --width 200 --height 24 >"$rig_folder/trayer.log" 2>&1 & rig_pids+=($!)
  if [ -n "$sound" ]; then
    export PULSE_SERVER=unix:$rig_socket_folder/pulse PULSE_RUNTIME_PATH=$rig_socket_folder
    pulseaudio -n --daemonize=no --exit-idle-time=-1 --disallow-exit=yes --use-pid-file=no --log-target=stderr \
      -L "module-null-sink sink_name=nul rate=48000 channels=2 norewinds=1" \
      -L "module-native-protocol-unix socket=$rig_socket_folder/pulse auth-anonymous=1" >"$rig_folder/pulse.log" 2>&1 &
    rig_pids+=($!)
    rig_wait_for 20 pactl info || { echo "rig: no sound server" >&2; return 1; }
  else
    export PULSE_SERVER=unix:$rig_socket_folder/none
  fi
  if [ ! -e "$WINEPREFIX/ready" ]; then
    "$rig_wine_loader" wineboot -i >"$rig_folder/wineboot.log" 2>&1
    if [ "$dpi" != 96 ]; then
      "$rig_wine_loader" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null 2>&1
    fi
    # Its services end by and by. A program started meanwhile brings services of its own, which then fail for minutes.
    timeout 60 "$(rig_wineserver)" -w >/dev/null 2>&1 || "$(rig_wineserver)" -k >/dev/null 2>&1 || true
    touch "$WINEPREFIX/ready"
  fi
  # One program keeps the server warm, so that each start takes milliseconds.
  "$rig_wine_loader" cmd /c "ping -n 100000 127.0.0.1 >nul" </dev/null >/dev/null 2>&1 & rig_pids+=($!)
}

rig_wine() { "$rig_wine_loader" "$@"; }

rig_stop() {
  # Wine's background processes belong to this prefix alone.
  [ -z "${WINEPREFIX:-}" ] || "$(rig_wineserver)" -k >/dev/null 2>&1 || true
  local pid
  for pid in "${rig_pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${rig_pids[@]}"; do wait "$pid" 2>/dev/null || true; done
  rig_pids=()
  [ -z "${rig_socket_folder:-}" ] || rm -rf "$rig_socket_folder"
}

rig_wineserver() { for each in /usr/lib/wine/wineserver64 /usr/lib/wine/wineserver /usr/bin/wineserver; do
  [ -x "$each" ] && { echo "$each"; return; }; done; }
