# The chain's build steps, sourced by build.sh. Each step builds one or two libraries from
# the unpacked sources in $src into static libraries, headers and .pc files under $prefix,
# in a build folder under $work. build.sh sets: host, src, work, prefix, cross_file, jobs,
# and exports PKG_CONFIG_LIBDIR=$prefix/lib/pkgconfig.

cc="$host-gcc-posix"

# autotools_configure NAME SOURCE-DIR CONFIGURE-ARGUMENTS...: configures in $work/NAME.
autotools_configure() {
    name=$1
    source_dir=$2
    shift 2
    rm -rf "${work:?}/$name"
    mkdir -p "$work/$name"
    (cd "$work/$name" &&
        "$source_dir/configure" --host="$host" --prefix="$prefix" \
            --enable-static --disable-shared CC="$cc" "$@")
}

# autotools_build NAME SOURCE-DIR CONFIGURE-ARGUMENTS...: configures, builds, installs.
autotools_build() {
    autotools_configure "$@"
    make -C "$work/$1" -j "$jobs" install
}

# meson_build NAME SOURCE-DIR MESON-OPTIONS...
meson_build() {
    name=$1
    source_dir=$2
    shift 2
    rm -rf "${work:?}/$name"
    meson setup "$work/$name" "$source_dir" --cross-file "$cross_file" --prefix "$prefix" \
        --libdir lib --default-library=static --buildtype=release --wrap-mode=nodownload "$@"
    ninja -C "$work/$name" -j "$jobs" install
}

# Debian's libz-mingw-w64-dev has the static zlib but no .pc file, and libpng's .pc
# requires one (without it cairo's configure finds no usable libpng).
step_zlib() {
    version=$(dpkg-query -W -f '${Version}' libz-mingw-w64-dev)
    mkdir -p "$prefix/lib/pkgconfig"
    cat >"$prefix/lib/pkgconfig/zlib.pc" <<PC
prefix=/usr/$host
Name: zlib
Description: zlib from Debian's libz-mingw-w64-dev $version
Version: ${version%%+*}
Libs: -L\${prefix}/lib -l:libz.a
Cflags: -I\${prefix}/include
PC
}

# pixman marks its functions for export from a DLL even in a static build; a module linking
# it would pass them all on. Its build file is told not to.
step_pixman() {
    sed -i "s/cc.has_function_attribute('dllexport')/false/" "$src/pixman/pixman/meson.build"
    meson_build pixman "$src/pixman" \
        -Dtests=disabled -Dgtk=disabled -Dlibpng=disabled -Dopenmp=disabled -Dtimers=false
}

step_libpng() {
    autotools_build libpng "$src/libpng1.6" CFLAGS=-O2
}

# cairo 1.16 has no meson build yet. Only the image surface, the win32 surface and font
# backend and PNG support are built.
step_cairo() {
    autotools_configure cairo "$src/cairo" CFLAGS=-O2 \
        --enable-win32 --enable-win32-font --enable-png \
        --disable-xlib --disable-xcb --disable-xlib-xrender --disable-ft --disable-fc \
        --disable-gobject --disable-interpreter --disable-trace --disable-symbol-lookup \
        --disable-script --disable-ps --disable-pdf --disable-svg --disable-gtk-doc \
        --disable-full-testing --disable-test-surfaces
    # Only src/, which holds the library, its headers and .pc files: the top-level install
    # also builds the test suite, which wants freetype whatever configure was told.
    make -C "$work/cairo/src" -j "$jobs" install
    # The header declares every function dllimport unless CAIRO_WIN32_STATIC_BUILD is
    # defined. cairo's configure compiles with -D_FORTIFY_SOURCE=2, which mingw's headers
    # serve from libssp; and the win32 backend calls GDI and AlphaBlend. A static user
    # learns all of that from the .pc files.
    for pc in "$prefix"/lib/pkgconfig/cairo.pc; do
        sed -i -e 's|^Cflags:\(.*\)$|Cflags:\1 -DCAIRO_WIN32_STATIC_BUILD|' \
            -e 's|^Libs.private:\(.*\)$|Libs.private:\1 -lgdi32 -lmsimg32 -lssp|' "$pc"
    done
}

# glib needs libintl (see intl/), libffi and pcre2.
step_glib_prerequisites() {
    mkdir -p "$prefix/lib" "$prefix/include" "$work/intl"
    "$cc" -O2 -Wall -Wextra -c "$deps_dir/intl/intl.c" -o "$work/intl/intl.o"
    rm -f "$prefix/lib/libintl.a"
    "$host-ar" rcs "$prefix/lib/libintl.a" "$work/intl/intl.o"
    cp "$deps_dir/intl/libintl.h" "$prefix/include/"
    autotools_build libffi "$src/libffi" CFLAGS=-O2 --disable-docs --disable-multi-os-directory
    # Without PCRE2_STATIC pcre2's own programs look for the DLL's __imp_ symbols.
    autotools_build pcre2 "$src/pcre2" CFLAGS="-O2 -DPCRE2_STATIC" \
        --disable-pcre2grep-libz --disable-pcre2grep-libbz2 --disable-pcre2test-libreadline
}

# meson finds libintl by linking a test program, with the C++ compiler too, and a cross
# compiler ignores LIBRARY_PATH: the folders go in as compiler and linker arguments.
# gio/gunixconnection.c trips -Werror=format-nonliteral with mingw's printf attributes.
step_glib() {
    meson_build glib "$src/glib2.0" \
        -Dtests=false -Dinstalled_tests=false -Dnls=disabled -Dman=false -Dgtk_doc=false \
        -Dlibmount=disabled -Dselinux=disabled -Dxattr=false -Dsysprof=disabled \
        -Dglib_debug=disabled \
        -Dc_args="-I$prefix/include -Wno-error=format-nonliteral" -Dc_link_args="-L$prefix/lib" \
        -Dcpp_args="-I$prefix/include" -Dcpp_link_args="-L$prefix/lib"
}

step_fribidi() {
    meson_build fribidi "$src/fribidi" -Ddocs=false -Dc_args=-DFRIBIDI_LIB_STATIC
}

# Only what pango needs: glib integration, no freetype, no cairo, no native shapers.
step_harfbuzz() {
    meson_build harfbuzz "$src/harfbuzz" \
        -Dtests=disabled -Ddocs=disabled -Dintrospection=disabled -Dbenchmark=disabled \
        -Dglib=enabled -Dgobject=disabled -Dcairo=disabled \
        -Dchafa=disabled -Dicu=disabled -Dfreetype=disabled -Dgdi=disabled \
        -Ddirectwrite=disabled
}

# The win32 font backend and pangocairo; no fontconfig, freetype or Xft.
step_pango() {
    meson_build pango "$src/pango1.0" \
        -Dgtk_doc=false -Dintrospection=disabled -Dinstall-tests=false \
        -Dfontconfig=disabled -Dfreetype=disabled -Dxft=disabled \
        -Dcairo=enabled -Dsysprof=disabled -Dlibthai=disabled \
        -Dc_args="-I$prefix/include" -Dc_link_args="-L$prefix/lib" \
        -Dcpp_args="-I$prefix/include" -Dcpp_link_args="-L$prefix/lib"
}

steps="zlib pixman libpng cairo glib_prerequisites glib fribidi harfbuzz pango"
