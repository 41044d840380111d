#include "effect/Myifstream.h"

#include <cstring>

bool Myifstream::open(const char* path, int mode) {
    unsigned flags = CFile::modeRead;
    if ((mode & kRead) && (mode & kWrite)) {
        flags = CFile::modeReadWrite;
    } else if (mode & kWrite) {
        flags = CFile::modeWrite;
    }
    if (mode & kCreate) {
        flags |= CFile::modeCreate;
    }
    if (mode & kBinary) {
        flags |= CFile::typeBinary;
    }
    m_failed = !m_file.Open(path, flags);
    return !m_failed;
}

void Myifstream::close() {
    m_file.Close();
}

bool Myifstream::get(char& byte) {
    return m_file.Read(&byte, 1) == 1;
}

bool Myifstream::get(char* buffer, int size) {
    if (size <= 0) {
        return false;
    }
    std::memset(buffer, 0, static_cast<size_t>(size));
    const auto wanted = static_cast<unsigned>(size - 1);
    return m_file.Read(buffer, wanted) == wanted;
}

bool Myifstream::read(char* buffer, int count) {
    return count >= 0 &&
           m_file.Read(buffer, static_cast<unsigned>(count)) == static_cast<unsigned>(count);
}

bool Myifstream::getline(char* buffer, int size, char delimiter) {
    if (size < 0) {
        return false;
    }
    for (int i = 0; i < size; ++i) {
        char byte;
        if (!get(byte)) {
            buffer[i] = 0;
            return i > 0;
        }
        if (byte == delimiter) {
            const bool dropCarriageReturn = delimiter == '\n' && i > 0 && buffer[i - 1] == '\r';
            buffer[dropCarriageReturn ? i - 1 : i] = 0;
            return true;
        }
        buffer[i] = byte;
    }
    buffer[size] = 0;
    return true;
}

bool Myifstream::eof() const {
    const int64_t position = m_file.GetPosition();
    return position < 0 || position >= m_file.GetLength();
}

bool Myifstream::seekg(int64_t position) {
    return m_file.Seek(position, CFile::begin) >= 0;
}

int64_t Myifstream::tellg() const {
    return m_file.GetPosition();
}
