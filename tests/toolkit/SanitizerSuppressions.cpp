// Suppressions for the toolkit's tests, read only in sanitizer builds. Fontconfig keeps its
// configuration and match results for the life of the process in structures the leak
// checker cannot follow, and Pango matches fonts on a helper thread of its own through
// fontconfig's internal locking, which the thread checker cannot see. Nothing of ours is
// suppressed.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}

extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions() {
    return "race:libfontconfig.so\n";
}
