// The toolkit's binary file: open for reading, writing or both (optionally creating),
// byte and block reads and writes, seek and close. Accepts plain paths and file:// URLs.
// Failures are reported by return values.
#pragma once

#include <cstdint>

class CFile {
public:
    enum OpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeBinary = 0x8000,
    };
    enum SeekPosition { begin = 0, current = 1, end = 2 };

    CFile() = default;
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    bool Open(const char* pathOrURL, unsigned flags);
    bool IsOpen() const { return m_handle != kClosed; }
    // Bytes actually read: fewer than asked at the end of the file, 0 on failure.
    unsigned Read(void* buffer, unsigned count);
    // True only when every byte was written.
    bool Write(const void* buffer, unsigned count);
    // The new position, or -1 on failure.
    int64_t Seek(int64_t offset, SeekPosition from);
    int64_t GetPosition() const;
    int64_t GetLength() const;
    // Pushes written data to the disk; true when it is there.
    bool Flush();
    // True when the file was open and closed without error.
    bool Close();

private:
    // A file descriptor, or a Windows file handle.
    static constexpr intptr_t kClosed = -1;
    intptr_t m_handle = kClosed;
};
