// A byte stream over the toolkit's file, for reading the legacy text files. Every read
// error turns into a false result; nothing throws.
#pragma once

#include "base/CFile.h"

#include <cstdint>

class Myifstream {
public:
    enum Mode : int { kRead = 1, kWrite = 2, kCreate = 16, kBinary = 128 };

    // A failed open sets the fail state.
    bool open(const char* path, int mode);
    void close();
    bool fail() const { return m_failed; }
    bool is_open() const { return m_file.IsOpen(); }

    // One byte; false at the end of the file.
    bool get(char& byte);
    // size - 1 bytes into a zeroed buffer of size bytes.
    bool get(char* buffer, int size);
    // Exactly count bytes; false when fewer were there.
    bool read(char* buffer, int count);
    // One line, up to the delimiter, which becomes the terminator (and, for a line feed,
    // a carriage return before it does). Kept: when no delimiter comes within size bytes
    // the terminator goes to buffer[size], so the buffer holds size + 1 bytes.
    bool getline(char* buffer, int size, char delimiter = '\n');
    // True once the read position has reached the length.
    bool eof() const;
    bool seekg(int64_t position);
    int64_t tellg() const;

private:
    CFile m_file;
    bool m_failed = false;
};
