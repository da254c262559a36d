#!/bin/bash
# Runs a Windows program, or a script that runs some, under Wine: tests/wine.sh PROGRAM|SCRIPT.sh [ARGUMENT]...
# WINEPREFIX names the prefix, which is made when it is missing. Without a DISPLAY the program gets a screen of its own,
# of the size that TAGRIX_SCREEN may name, and what else runs in the prefix ends with it.
set -eu
: "${WINEPREFIX:?names the prefix to run in}"
export WINEPREFIX WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree=;mshtml=;winedbg.exe=;winemenubuilder.exe="

if [ -z "${DISPLAY:-}" ]; then
  exec {number}< <(exec Xvfb -displayfd 1 -screen 0 "${TAGRIX_SCREEN:-1280x960}x24" -nolisten tcp 2>/dev/null)
  screen=$!
  trap 'wineserver --kill || true; kill "$screen"' EXIT
  read -r DISPLAY <&"$number"
  export DISPLAY=":$DISPLAY"
fi

# What makes the prefix doesn't inherit the lock, which it would keep if it hung.
(
  flock 9
  if [ ! -e "$WINEPREFIX/unmanaged" ]; then
    mkdir -p "$WINEPREFIX/drive_c"
    echo TAGRIX > "$WINEPREFIX/drive_c/.windows-label"
    {
      wineserver --kill || true  # left over from an attempt that hung
      wineboot --init >/dev/null 2>&1
      # No window manager runs on these screens: Wine would wait two seconds for it whenever a window closes.
      wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
      wineserver --wait
    } 9>&-
    touch "$WINEPREFIX/unmanaged"
  fi
) 9>"$WINEPREFIX.lock"

case $1 in
  *.sh) "$@" ;;
  *) wine "$@" ;;
esac
