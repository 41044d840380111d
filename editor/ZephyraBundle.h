// The plug-in's bundle: the identifier under which its bitmap resources are found.
#pragma once

constexpr const char kZephyraBundleIdentifier[] = "com.veltrona.zephyra";

// Makes the panel's artwork loadable under the bundle identifier; safe to call again and
// from any thread.
void RegisterZephyraBundle();
