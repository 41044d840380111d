// Readers for the legacy program list and its program files (one tab-separated value
// line per program).
#pragma once

#include <cstddef>
#include <cstdint>

constexpr uint32_t kLastField = 0xFFFFFFFF;
constexpr size_t kValueLineSize = 501; // 500 bytes and the terminator
constexpr size_t kFieldSize = 4100;

// Copies the field that begins at start into field (a buffer of kFieldSize bytes) and
// returns where the next one begins, or kLastField when this was the last.
uint32_t StrTerminateTab(const char* line, int start, char* field);

// Reads a program file's value line into line (kValueLineSize bytes); a file that cannot
// be opened leaves the buffer as it was.
void LoadPGMFileBody(const char* path, char* line);
