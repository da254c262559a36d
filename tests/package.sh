#!/bin/bash
# tests/package.sh FOLDER, under tests/wine.sh: installs what ./package has made there, starts it, tries to install over
# it while it runs and afterwards, and uninstalls it: nothing remains but the settings. Looks at its hardening, too.
set -euo pipefail
dist=$(cd "$1" && pwd)
work=$(mktemp -d)
drive=$WINEPREFIX/drive_c
trap 'rm -rf "$work" "$drive/burner"' EXIT
complain() { echo "package: $*" >&2; exit 1; }
within() { for ((i = 0; i < 300; ++i)); do "$@" && return; sleep 0.1; done; complain "never: $*"; }
value() { sed -n "s/^$1=\(.*\)\r$/\1/p" "$dist/upd.dat"; }

setup=$dist/$(value FileName)
revision=$(sed -n 's/^project(.* VERSION [0-9]*\.[0-9]*\.\([0-9]*\) .*/\1/p' CMakeLists.txt)
[ "$(value build)" = "$revision" ] && [ -f "$setup" ] && [ "$(value Path)" = /ostrelco/files ] || complain "upd.dat"
unzip -q "$dist"/tagrix-*.zip -d "$work"
manual=$work/Tagrix/manual
[ -s "$manual/manual.html" ] || complain "no manual"
for file in $(grep -ohE '(src|href)="[^#":]+' "$manual"/*.html | cut -d '"' -f 2 | sort -u); do
  [ -s "$manual/$file" ] || complain "the manual lacks $file"
done

# Addresses that can't be guessed, data that can't be run, landing pads, a guarded stack, and no library that Windows
# would look for beside the program: those named here are its KnownDLLs and the one of the manifest; load_when_called
# serves the others.
headers=$(x86_64-w64-mingw32-objdump -p "$work/Tagrix/tagrix.exe")
for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do grep -q "$flag" <<<"$headers" || complain "no $flag"; done
grep -q 'relocations stripped' <<<"$headers" && complain "it can't be moved"
x86_64-w64-mingw32-objdump -d "$work/Tagrix/tagrix.exe" | grep -c endbr64 >"$work/landings"
[ "$(cat "$work/landings")" -gt 1000 ] || complain "jumps may lead anywhere"
x86_64-w64-mingw32-nm -u build/win/libtagrix_lib.a | grep __stack_chk_fail >/dev/null || complain "no guard of the stack"
known='ADVAPI32|COMCTL32|COMDLG32|GDI32|KERNEL32|msvcrt|ole32|OLEAUT32|SHELL32|SHLWAPI|USER32|WS2_32'
others=$(sed -n 's/^\tDLL Name: //p' <<<"$headers" | grep -viE "^($known)\.dll$" || true)
[ -z "$others" ] || complain "loaded from beside the program: $others"

# All files of the drive but temporary ones, and all keys and values but the settings.
traces() {
  find "$drive" \( -ipath '*/temp/*' -prune \) -o -print | sort
  for hive in HKCU HKLM; do
    wine reg export "$hive\\Software" "$work/$hive.reg" /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$work/$hive.reg" | tr -d '\r' |
      awk -v RS= -v ORS='\n\n' '!/^\[HKEY_CURRENT_USER\\Software\\Ostrel/'
  done
}
seen() { xwininfo -root -tree | grep -qE '"Tagrix": .* [0-9]{3,}x[4-9][0-9]{2}\+'; }
gone() { ! compgen -G "$1" >/dev/null; }

# With a burning program the start has nothing to ask.
mkdir -p "$drive/burner"
touch "$drive/burner/copytocd.exe"
wine reg add 'HKLM\Software\VSO' /v CopyToDVD /d 'C:\burner\' /f >/dev/null
wine reg delete 'HKCU\Software\Ostrel Corp.' /f >/dev/null 2>&1 || true
traces >"$work/before"

wine "$setup" /S
installed=$(compgen -G "$drive/users/*/AppData/Local/Programs/Tagrix")
diff -r "$work/Tagrix" "$installed" | grep -v ': uninstall.exe$' && complain "the zip holds something else"
compgen -G "$drive/users/*/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Tagrix.lnk" >/dev/null ||
  complain "no shortcut"

wine "$installed/tagrix.exe" &
program=$!
within seen
wine "$setup" /S && complain "it replaces a program that runs"
cmp "$work/Tagrix/tagrix.exe" "$installed/tagrix.exe"
wine taskkill /im tagrix.exe >/dev/null
wait "$program"

mkdir -p "$installed/upd"
touch "$installed/upd/newer-setup.exe"
echo "of an earlier version" >"$installed/english.lf"
wine "$setup" /S
cmp "$work/Tagrix/english.lf" "$installed/english.lf"

wine "$installed/uninstall.exe" /S
within gone "$installed"
wineserver --wait
traces >"$work/after"
diff "$work/before" "$work/after" | grep '^>' && complain "traces are left"
wine reg query 'HKCU\Software\Ostrel Corp.\Tagrix' /v langue >/dev/null || complain "the settings are gone"
echo "installed, started, replaced, uninstalled"
