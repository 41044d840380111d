// Sanitizer builds only: fontconfig's lifetime caches and Pango's fontconfig helper thread are
// opaque to the checkers, as is a block cairo_paint keeps past an X display's close; none is ours.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\nleak:cairo_paint\n";
}

extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions() {
    return "race:libfontconfig.so\n";
}
