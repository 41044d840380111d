// Files on POSIX systems: descriptors, retried after signals.
#include "base/CFile.h"
#include "base/CFileFind.h"

#include "base/PlatformFolders.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

CFile::~CFile() {
    Close();
}

bool CFile::Open(const char* pathOrURL, unsigned flags) {
    Close();
    int access = O_RDONLY;
    if (flags & modeReadWrite) {
        access = O_RDWR;
    } else if (flags & modeWrite) {
        access = O_WRONLY;
    }
    if (flags & modeCreate) {
        access |= O_CREAT;
        if (!(flags & modeNoTruncate)) {
            access |= O_TRUNC;
        }
    }
    const std::string path = FileURLToPath(pathOrURL);
    do {
        m_handle = ::open(path.c_str(), access | O_CLOEXEC, 0644);
    } while (m_handle < 0 && errno == EINTR);
    if (m_handle < 0) {
        return false;
    }
    struct stat status {};
    if (fstat(m_handle, &status) != 0 || S_ISDIR(status.st_mode)) {
        Close();
        return false;
    }
    return true;
}

namespace {

// Moves count bytes with a read or write call that may move fewer at a time, retrying
// after a signal; returns how many were moved before the end of the file or an error.
template <typename Byte, typename Transfer>
unsigned TransferAll(Byte* bytes, unsigned count, Transfer transfer) {
    unsigned done = 0;
    while (done < count) {
        const ssize_t moved = transfer(bytes + done, count - done);
        if (moved < 0 && errno == EINTR) {
            continue;
        }
        if (moved <= 0) {
            break;
        }
        done += static_cast<unsigned>(moved);
    }
    return done;
}

} // namespace

unsigned CFile::Read(void* buffer, unsigned count) {
    if (m_handle < 0) {
        return 0;
    }
    return TransferAll(static_cast<char*>(buffer), count,
                       [this](char* at, unsigned left) { return ::read(m_handle, at, left); });
}

bool CFile::Write(const void* buffer, unsigned count) {
    if (m_handle < 0) {
        return false;
    }
    const auto written =
        TransferAll(static_cast<const char*>(buffer), count,
                    [this](const char* at, unsigned left) { return ::write(m_handle, at, left); });
    return written == count;
}

int64_t CFile::Seek(int64_t offset, SeekPosition from) {
    if (m_handle < 0) {
        return -1;
    }
    const int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END;
    return ::lseek(m_handle, offset, whence);
}

int64_t CFile::GetPosition() const {
    return m_handle < 0 ? -1 : ::lseek(m_handle, 0, SEEK_CUR);
}

int64_t CFile::GetLength() const {
    struct stat status {};
    return m_handle >= 0 && fstat(m_handle, &status) == 0 ? status.st_size : -1;
}

bool CFile::Flush() {
    return m_handle >= 0 && ::fsync(m_handle) == 0;
}

bool CFile::Close() {
    if (m_handle < 0) {
        return false;
    }
    const int result = ::close(m_handle);
    m_handle = -1;
    return result == 0;
}

bool CFileFind::FindFile(const char* pathOrURL) {
    struct stat status {};
    return pathOrURL && stat(FileURLToPath(pathOrURL).c_str(), &status) == 0 &&
           S_ISREG(status.st_mode);
}
