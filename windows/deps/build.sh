#!/bin/bash
# Builds Cairo, Pango and what they need as static libraries for 64-bit Windows, with
# Debian's mingw-w64 compilers, from the Debian 12 source packages listed in `sources`,
# once per machine:
#
#   windows/deps/build.sh CACHE_ROOT
#
# The result goes in CACHE_ROOT/KEY/sysroot, where KEY is a hash of this folder's files
# (README.md aside) and of the compilers' and build tools' versions. When that folder is
# already complete, the script only prints its path; otherwise it fetches the sources,
# builds the chain in a temporary folder under CACHE_ROOT, and renames it into place when
# everything is built, so that an interrupted build never looks finished. Progress goes to
# standard error; standard output gets only the sysroot's path, for
#
#   cmake ... -DZEPHYRA_WINDOWS_DEPS="$(windows/deps/build.sh CACHE_ROOT)"
#
# With --find, it builds nothing: it prints the path when the build is there, and fails
# otherwise (what the cross build's configure asks).
#
# Needs: meson, ninja-build, pkg-config, dpkg-dev, g++-mingw-w64-x86-64-posix,
# libz-mingw-w64-dev; root, the first time, if apt has no deb-src entry for bookworm.
set -eu

deps_dir=$(cd "$(dirname "$0")" && pwd)
host=x86_64-w64-mingw32
jobs=${ZEPHYRA_DEPS_JOBS:-$(nproc)}

say() {
    echo "windows/deps: $*" >&2
}

fail() {
    say "$*"
    exit 1
}

find_only=false
if [ "${1:-}" = --find ]; then
    find_only=true
    shift
fi
[ $# -eq 1 ] || fail "usage: $0 [--find] CACHE_ROOT"

for tool in meson ninja pkg-config dpkg-source apt-get flock "$host-gcc-posix" "$host-g++-posix"; do
    command -v "$tool" >/dev/null || fail "$tool is missing"
done
[ -f "/usr/$host/lib/libz.a" ] || fail "libz-mingw-w64-dev is missing"

# The package lines of `sources`: package, version, patches.
source_lines() {
    grep -v -e '^#' -e '^[[:space:]]*$' "$deps_dir/sources"
}

# Everything that decides what the build produces: this folder's files and the tools.
cache_key() {
    (
        cd "$deps_dir"
        find . -type f ! -name '*.md' -print0 | LC_ALL=C sort -z | xargs -0 sha256sum
        "$host-gcc-posix" --version | head -n 1
        "$host-g++-posix" --version | head -n 1
        dpkg-query -W mingw-w64-x86-64-dev libz-mingw-w64-dev meson ninja-build
    ) | sha256sum | cut -c 1-16
}

mkdir -p "$1"
cache_root=$(cd "$1" && pwd)
key=$(cache_key)
final=$cache_root/$key

if [ -f "$final/finished" ]; then
    echo "$final/sysroot"
    exit 0
fi
$find_only && fail "Cairo and Pango for Windows are not built in $cache_root yet: run $0 $cache_root"

# One build per key at a time; whoever waited here may find the work done.
exec 9>"$cache_root/$key.lock"
flock 9
if [ -f "$final/finished" ]; then
    echo "$final/sysroot"
    exit 0
fi
# A folder without the marker was not made by this script (it renames only finished
# builds into place): it cannot be trusted.
rm -rf "$final"

tmp=$(mktemp -d "$cache_root/.$key.XXXXXX")
trap 'rm -rf "$tmp"' EXIT
say "building into $final (log files in $tmp/logs while it runs)"

prefix=$tmp/sysroot
src=$tmp/src
work=$tmp/work
logs=$tmp/logs
downloads=$tmp/sources
mkdir -p "$prefix" "$src" "$work" "$logs" "$downloads"

# apt needs a deb-src entry for bookworm to fetch the source packages; one is added in a
# file of its own when the versions listed are unknown to apt.
apt_knows_sources() {
    source_lines | while read -r package version _; do
        apt-cache showsrc --only-source "$package" 2>/dev/null |
            grep -qx "Version: $version" || return 1
    done
}

if ! apt_knows_sources; then
    list=/etc/apt/sources.list.d/zephyra-deb-src.sources
    [ "$(id -u)" -eq 0 ] ||
        fail "apt knows no bookworm source packages; add a deb-src entry or run as root once"
    if [ ! -e "$list" ]; then
        say "adding $list"
        cat >"$list" <<LIST
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm bookworm-updates
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
LIST
    fi
    apt-get update -qq >&2
    apt_knows_sources || fail "apt does not offer every version listed in $deps_dir/sources"
fi

# apply_debian_patches PACKAGE: the unpacked package's quilt series, but for the patches
# listed in skipped-patches. (A source package of the old format has no series: its one
# diff is applied on unpacking.)
apply_debian_patches() {
    dir=$src/$1
    series=$dir/debian/patches/series
    [ -f "$series" ] || return 0
    sed -e 's/#.*//' "$series" | while read -r patch options; do
        [ -n "$patch" ] || continue
        if grep -v '^#' "$deps_dir/skipped-patches" | grep -qx "$1[[:space:]]\+$patch"; then
            echo "$1: skipping $patch" >>"$logs/fetch.log"
            continue
        fi
        patch -d "$dir" -s -f ${options:--p1} <"$dir/debian/patches/$patch" >>"$logs/fetch.log" 2>&1 ||
            fail "$1: $patch does not apply (see $logs/fetch.log)"
    done
}

# Fetching: apt checks each file against the archive's signed index. A package used
# without its Debian patches needs only its upstream tarball (the mirror may lack the rest).
say "fetching source packages"
source_lines | while read -r package version patches; do
    upstream=${version%-*}
    if ! (cd "$downloads" && apt-get source --download-only -qq "$package=$version") \
        >>"$logs/fetch.log" 2>&1; then
        if [ "$patches" != none ] || ! ls "$downloads/${package}_$upstream.orig.tar."* >/dev/null 2>&1; then
            fail "could not fetch $package $version (see $logs/fetch.log)"
        fi
    fi
    if [ "$patches" = debian ]; then
        dpkg-source -q -x --skip-patches "$downloads/${package}_$version.dsc" "$src/$package" \
            >>"$logs/fetch.log" 2>&1
        apply_debian_patches "$package"
    else
        mkdir "$src/$package"
        tar -xf "$downloads/${package}_$upstream.orig.tar."* --strip-components=1 -C "$src/$package"
    fi
    # One time stamp for every file: make must not take a patched configure.ac or
    # Makefile.am for a reason to run autotools again.
    find "$src/$package" -exec touch -h -d @1700000000 {} +
done

sed "s|@PKG_CONFIG@|$deps_dir/pkg-config-static|" "$deps_dir/meson-cross.ini.in" \
    >"$work/meson-cross.ini"
export host src work prefix jobs deps_dir
export cross_file=$work/meson-cross.ini
export PKG_CONFIG_LIBDIR=$prefix/lib/pkgconfig
unset PKG_CONFIG_PATH PKG_CONFIG_SYSROOT_DIR

# Each step runs in a shell of its own, so that its first failing command stops it.
steps=$(bash -c ". '$deps_dir/steps.sh'; echo \$steps")
TIMEFORMAT='%R %U %S'
for step in $steps; do
    say "$step"
    if ! { time bash -eu -c ". '$deps_dir/steps.sh'; step_$step" >"$logs/$step.log" 2>&1; } \
        2>"$logs/$step.time"; then
        tail -n 40 "$logs/$step.log" >&2
        fail "$step failed (the log above is the end of $logs/$step.log)"
    fi
    read -r wall user system <"$logs/$step.time"
    awk -v step="$step" -v wall="$wall" -v cpu="$user + $system" \
        'BEGIN { split(cpu, t, " [+] "); printf "%-20s wall %7.1f s   cpu %7.1f s\n", step, wall, t[1] + t[2] }' |
        tee -a "$logs/times.txt" >&2
done

# The .pc files name their folder relative to where they are, so that the sysroot works
# from wherever it ends up; libtool's .la files name the build folder and nobody needs them.
for pc in "$prefix"/lib/pkgconfig/*.pc; do
    sed -i "s|^prefix=$prefix\$|prefix=\${pcfiledir}/../..|" "$pc"
done
if grep -l "$tmp" "$prefix"/lib/pkgconfig/*.pc >&2; then
    fail "the .pc files above still name the build folder"
fi
rm -f "$prefix"/lib/*.la

{
    echo "Built $(date -u '+%Y-%m-%d %H:%M UTC') by windows/deps/build.sh, key $key"
    echo
    echo "Debian 12 source packages (their files are in ../sources):"
    source_lines
    echo
    echo "Tools:"
    "$host-gcc-posix" --version | head -n 1
    dpkg-query -W mingw-w64-x86-64-dev libz-mingw-w64-dev meson ninja-build
} >"$tmp/manifest.txt"

rm -rf "$src" "$work"
touch "$tmp/finished"
mv -T "$tmp" "$final"
trap - EXIT
say "done: $final"
echo "$final/sysroot"
