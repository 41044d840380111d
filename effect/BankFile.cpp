#include "effect/BankFile.h"

#include "effect/AZephyraProgram.h"

#include <cstring>

namespace {

constexpr char kChunkMagic[4] = {'C', 'c', 'n', 'K'};
constexpr char kOpaqueBankMagic[4] = {'F', 'B', 'C', 'h'};
constexpr int kReservedBytes = 128;

bool readMagic(CFile& file, const char (&expected)[4]) {
    char magic[4];
    return file.Read(magic, 4) == 4 && std::memcmp(magic, expected, 4) == 0;
}

} // namespace

uint32_t getDWordFile(CFile& file) {
    uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        unsigned char byte = 0;
        file.Read(&byte, 1);
        value = (value << 8) | byte;
    }
    return value;
}

uint16_t getWordFile(CFile& file) {
    uint16_t value = 0;
    for (int i = 0; i < 2; ++i) {
        unsigned char byte = 0;
        file.Read(&byte, 1);
        value = static_cast<uint16_t>((value << 8) | byte);
    }
    return value;
}

bool putDWordFile(CFile& file, uint32_t value) {
    bool written = true;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const auto byte = static_cast<unsigned char>(value >> shift);
        written = file.Write(&byte, 1) && written;
    }
    return written;
}

BankFileStatus ReadBankFile(const char* pathOrURL, int32_t uniqueId, std::vector<char>& chunk) {
    CFile file;
    if (!file.Open(pathOrURL, CFile::modeRead | CFile::typeBinary)) {
        return BankFileStatus::kNotOpened;
    }
    if (!readMagic(file, kChunkMagic)) {
        return BankFileStatus::kNotBankFile;
    }
    getDWordFile(file); // byte size: not trusted, not needed
    if (!readMagic(file, kOpaqueBankMagic)) {
        return BankFileStatus::kNotChunkBank;
    }
    getDWordFile(file); // format version
    if (getDWordFile(file) != static_cast<uint32_t>(uniqueId)) {
        return BankFileStatus::kOtherPlugin;
    }
    getDWordFile(file); // plug-in version
    getDWordFile(file); // number of programs
    file.Seek(kReservedBytes, CFile::current);
    const uint32_t chunkSize = getDWordFile(file);
    if (chunkSize > AZephyraProgram::kBytes) {
        return BankFileStatus::kDamaged;
    }
    chunk.resize(chunkSize);
    if (file.Read(chunk.data(), chunkSize) != chunkSize) {
        return BankFileStatus::kDamaged;
    }
    return BankFileStatus::kRead;
}

bool WriteBankFile(CFile& file, int32_t uniqueId, const void* chunk, uint32_t chunkSize) {
    bool written = file.Write(kChunkMagic, 4);
    written = putDWordFile(file, 0) && written; // kept 0: readers ignore the byte size
    written = file.Write(kOpaqueBankMagic, 4) && written;
    written = putDWordFile(file, 1) && written; // format version
    written = putDWordFile(file, static_cast<uint32_t>(uniqueId)) && written;
    written = putDWordFile(file, 1) && written; // plug-in version
    written = putDWordFile(file, kNumPrograms) && written;
    for (int i = 0; i < kReservedBytes; ++i) {
        const char zero = 0;
        written = file.Write(&zero, 1) && written;
    }
    written = putDWordFile(file, chunkSize) && written;
    return file.Write(chunk, chunkSize) && written;
}
