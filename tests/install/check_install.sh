#!/bin/sh
# Installs the build tree into a scratch prefix and builds a C program
# against it twice: with pkg-config, and with CMake's find_package(vmc).
set -eu
build=$1
here=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(find "$prefix" -name 'libvmc.so.1' -printf '%h\n' | head -n1)
test -d "$libdir/vmc/modules" || { echo "module folder missing"; exit 1; }

export PKG_CONFIG_PATH="$libdir/pkgconfig"
cc -std=c99 -Wall -Werror -o "$prefix/with_pkgconfig" "$here/hello.c" $(pkg-config --cflags --libs vmc)
LD_LIBRARY_PATH="$libdir" "$prefix/with_pkgconfig"

cmake -S "$here" -B "$prefix/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$prefix/consumer" >/dev/null
LD_LIBRARY_PATH="$libdir" "$prefix/consumer/hello"
echo "install tree usable"
