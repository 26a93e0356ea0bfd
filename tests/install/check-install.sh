#!/usr/bin/env bash
# Installs the build into a temporary prefix, as `cmake --install` does for a
# user, and proves the installed tree works on its own:
#   - the library carries its soname and version;
#   - a C client builds through find_package(LxDataAccess) and through
#     pkg-config, and both run against the installed library;
#   - the installed lxcat finds the installed library and, through it, the
#     editor tool beside it;
#   - CPack makes a .deb holding all of it, with its dependencies named.
#
#   tests/install/check-install.sh BUILD_DIR
set -euo pipefail
build=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

fail() { echo "check-install: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$prefix" >/dev/null
lib=$(find "$prefix" -name 'libLxDataAccess.so.1.*' -type f)
[ -n "$lib" ] || fail "no versioned library installed"
readelf -d "$lib" | grep -q 'soname: \[libLxDataAccess.so.1\]' || fail "wrong soname in $lib"
[ -x "$prefix/bin/RuvDbEditor.exe" ] || fail "editor tool not installed beside lxcat"

# Neither build may see the source tree: only what was installed.
cmake -S "$here/client" -B "$work/cmake-client" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake-client" >/dev/null
"$work/cmake-client/client" "$work/cmake.fdb" | grep -qx 'packets: 1' || fail "find_package client failed"

export PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name LxDataAccess.pc)")
libdir=$(pkg-config --variable=libdir LxDataAccess)
cc -std=c11 -o "$work/pc-client" "$here/client/client.c" $(pkg-config --cflags --libs LxDataAccess) \
  -Wl,-rpath,"$libdir"
"$work/pc-client" "$work/pc.fdb" | grep -qx 'packets: 1' || fail "pkg-config client failed"

# The installed lxcat raises a catalog's structure through the editor tool,
# which the library looks for beside lxcat.
"$prefix/bin/lxcat" new "$work/lxcat.fdb" || fail "installed lxcat could not write a catalog"
"$prefix/bin/lxcat" upgrade "$work/lxcat.fdb" || fail "installed lxcat could not run the editor tool"

(cd "$work" && cpack -G DEB --config "$build/CPackConfig.cmake" >/dev/null) || fail "cpack failed"
deb=$(ls "$work"/*.deb)
contents=$(dpkg-deb -c "$deb")
for f in ./usr/bin/lxcat ./usr/bin/RuvDbEditor.exe ./usr/include/LxDataAccess.h ./usr/lib/libLxDataAccess.so.1; do
  grep -q " $f" <<<"$contents" || fail "$f missing from $deb"
done
depends=$(dpkg-deb -f "$deb" Depends)
grep -q libfbclient2 <<<"$depends" || fail "the .deb does not depend on libfbclient2: $depends"
echo "check-install: installed tree, both clients, lxcat and $(basename "$deb") are good"
