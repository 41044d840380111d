// Suppressions for the toolkit's tests, read only in sanitizer builds. Fontconfig keeps its
// configuration and match results for the life of the process in structures the leak
// checker cannot follow, and Pango matches fonts on a helper thread of its own through
// fontconfig's internal locking, which the thread checker cannot see. Cairo's X surfaces
// now and then keep a small block that cairo_paint allocated for its own use past the
// display's closing (seen only when the X tests run with full stacks, as they do). Nothing
// of ours is suppressed: whatever our code allocates, it does not do inside cairo_paint.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\nleak:cairo_paint\n";
}

extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions() {
    return "race:libfontconfig.so\n";
}
