// The leak checker's suppressions for the toolkit's tests (read only in sanitizer builds).
// Fontconfig keeps its parsed configuration and its match results for the life of the
// process in structures the checker cannot follow; nothing of ours is suppressed.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
