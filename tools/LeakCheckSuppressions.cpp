// The leak checker's suppressions for the command-line host and the tests that load our
// module, linked only into sanitizer builds. Text drawing goes through fontconfig, which
// keeps its parsed configuration and match results for the life of the process in structures
// the checker cannot follow. Nothing of ours is suppressed.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
