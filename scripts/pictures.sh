#!/bin/bash
# scripts/pictures.sh LIGHT DPI, under tests/wine.sh: sets the theme (1 light, 0 dark) and the resolution of the screen
# and takes the pictures.
set -euo pipefail
wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize' /v AppsUseLightTheme /t REG_DWORD \
  /d "$1" /f >/dev/null
wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$2" /f >/dev/null
wine build/win/tests/ui/ui_tests.exe --gtest_also_run_disabled_tests --gtest_filter='PicturesTest.*' --gtest_brief=1 \
  2>build/pictures/wine.log
