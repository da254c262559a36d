# Sourced by ./test, ./run and ./package: installs the Debian packages that are missing.

# need PACKAGE:PROBE...  installs each package whose probe, a command or an absolute path, isn't there.
need() {
  local missing=() entry
  for entry in "$@"; do
    present "${entry#*:}" || missing+=("${entry%%:*}")
  done
  [ ${#missing[@]} -eq 0 ] && return

  if ! command -v apt-get >/dev/null; then
    echo "Please install what Debian calls: ${missing[*]}" >&2
    return 1
  fi
  echo "Installing ${missing[*]}"
  # The package lists of a fresh machine are empty or old: then they are fetched first.
  apt_get install "${missing[@]}" || { apt_get update && apt_get install "${missing[@]}"; }
}

present() {
  case $1 in
    /*) compgen -G "$1" >/dev/null ;;
    *) command -v "$1" >/dev/null ;;
  esac
}

# apt_get COMMAND [PACKAGE]...  as root, without questions.
apt_get() {
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Please run this as root once, or install sudo, to install: ${*:2}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends "$@" >&2
}

# The build tool that is there.
generator() { command -v ninja >/dev/null && echo Ninja || echo "Unix Makefiles"; }

native_packages=(g++:g++ cmake:cmake googletest:/usr/src/googletest/CMakeLists.txt
                 nlohmann-json3-dev:/usr/include/nlohmann/json.hpp)
present make || native_packages+=(ninja-build:ninja)
manual_packages=(python3:/usr/bin/python3 python3-markdown:/usr/lib/python3/dist-packages/markdown)
windows_packages=(g++-mingw-w64-x86-64-posix:x86_64-w64-mingw32-g++-posix "${manual_packages[@]}"
                  wine:wine wine64:/usr/lib/wine/wine64 xvfb:Xvfb
                  libxrender1:/usr/lib/*/libXrender.so.1 libxcursor1:/usr/lib/*/libXcursor.so.1
                  libxrandr2:/usr/lib/*/libXrandr.so.2 libxi6:/usr/lib/*/libXi.so.6
                  fonts-wine:/usr/share/wine/fonts/tahoma.ttf
                  fonts-liberation:/usr/share/fonts/truetype/liberation)
disc_server_packages=(libsqlite3-dev:/usr/include/sqlite3.h libarchive-dev:/usr/include/archive.h
                      libmicrohttpd-dev:/usr/include/microhttpd.h
                      pkg-config:pkg-config)
package_packages=(g++-mingw-w64-x86-64-posix:x86_64-w64-mingw32-g++-posix "${manual_packages[@]}" nsis:makensis zip:zip)
music_packages=(lame:lame sox:sox)
encoder_packages=(lame:lame ffmpeg:ffmpeg twolame:twolame mpg123:mpg123 python3:/usr/bin/python3)
tagger_packages=(id3v2:id3v2 file:file python3-mutagen:/usr/lib/python3/dist-packages/mutagen
                 python3-eyed3:/usr/lib/python3/dist-packages/eyed3
                 python3-taglib:/usr/lib/python3/dist-packages/taglib*)
fuzz_packages=(clang-14:clang-14 libclang-rt-14-dev:/usr/lib/llvm-14/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a)
