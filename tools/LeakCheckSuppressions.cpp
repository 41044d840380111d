// The leak checker's suppressions for the command-line host and the tests that load our
// module, linked only into sanitizer builds. Text drawing goes through fontconfig, which
// keeps its parsed configuration and match results for the life of the process in structures
// the checker cannot follow. Cairo's X surfaces now and then keep a small block that
// cairo_paint allocated for its own use past the display's closing. Nothing of ours is
// suppressed: whatever our code allocates, it does not do inside cairo_paint.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\nleak:cairo_paint\n";
}
