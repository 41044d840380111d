// Files on Windows: handles opened by UTF-16 path, shared the way POSIX files are (others
// may read, write, rename or delete the file while it is open).
#include "base/CFile.h"
#include "base/CFileFind.h"

#include "base/PlatformFolders.h"
#include "base/windows/WideText.h"

#include <windows.h>

namespace {

HANDLE handleOf(intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

std::wstring widePath(const char* pathOrURL) {
    return WideFromUtf8(FileURLToPath(pathOrURL));
}

// Moves count bytes with calls that may move fewer at a time; returns how many were moved
// before the end of the file or an error (a call that moves nothing).
template <typename Byte, typename Transfer>
unsigned transferAll(Byte* bytes, unsigned count, Transfer transfer) {
    unsigned done = 0;
    while (done < count) {
        const DWORD moved = transfer(bytes + done, count - done);
        if (moved == 0) {
            break;
        }
        done += moved;
    }
    return done;
}

} // namespace

CFile::~CFile() {
    Close();
}

bool CFile::Open(const char* pathOrURL, unsigned flags) {
    Close();
    DWORD access = GENERIC_READ;
    if (flags & modeReadWrite) {
        access = GENERIC_READ | GENERIC_WRITE;
    } else if (flags & modeWrite) {
        access = GENERIC_WRITE;
    }
    DWORD disposition = OPEN_EXISTING;
    if (flags & modeCreate) {
        disposition = (flags & modeNoTruncate) ? OPEN_ALWAYS : CREATE_ALWAYS;
    }
    const HANDLE file = CreateFileW(widePath(pathOrURL).c_str(), access,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return false;
    }
    m_handle = reinterpret_cast<intptr_t>(file);
    return true;
}

unsigned CFile::Read(void* buffer, unsigned count) {
    return transferAll(static_cast<char*>(buffer), count, [this](char* at, DWORD left) {
        DWORD moved = 0;
        return IsOpen() && ReadFile(handleOf(m_handle), at, left, &moved, nullptr) ? moved : 0;
    });
}

bool CFile::Write(const void* buffer, unsigned count) {
    const auto written =
        transferAll(static_cast<const char*>(buffer), count, [this](const char* at, DWORD left) {
            DWORD moved = 0;
            return IsOpen() && WriteFile(handleOf(m_handle), at, left, &moved, nullptr) ? moved : 0;
        });
    return written == count;
}

int64_t CFile::Seek(int64_t offset, SeekPosition from) {
    const DWORD method = from == begin ? FILE_BEGIN : from == current ? FILE_CURRENT : FILE_END;
    LARGE_INTEGER distance, position;
    distance.QuadPart = offset;
    if (!IsOpen() || !SetFilePointerEx(handleOf(m_handle), distance, &position, method)) {
        return -1;
    }
    return position.QuadPart;
}

int64_t CFile::GetPosition() const {
    LARGE_INTEGER none, position;
    none.QuadPart = 0;
    if (!IsOpen() || !SetFilePointerEx(handleOf(m_handle), none, &position, FILE_CURRENT)) {
        return -1;
    }
    return position.QuadPart;
}

int64_t CFile::GetLength() const {
    LARGE_INTEGER size;
    return IsOpen() && GetFileSizeEx(handleOf(m_handle), &size) ? size.QuadPart : -1;
}

bool CFile::Flush() {
    return IsOpen() && FlushFileBuffers(handleOf(m_handle));
}

bool CFile::Close() {
    if (!IsOpen()) {
        return false;
    }
    const bool closed = CloseHandle(handleOf(m_handle));
    m_handle = kClosed;
    return closed;
}

bool CFileFind::FindFile(const char* pathOrURL) {
    if (!pathOrURL) {
        return false;
    }
    const DWORD attributes = GetFileAttributesW(widePath(pathOrURL).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}
