// Bank and program files built byte by byte, big-endian as the file format stores them,
// written apart from the readers under test. Plug-in identifiers are four characters.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

inline std::string BigEndian(uint32_t value) {
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
            static_cast<char>(value >> 8), static_cast<char>(value)};
}

// The 156-byte header of a bank ("FxBk" parameter lists, "FBCh" one chunk) or the first
// 28 bytes of a program ("FxCk"); the selected program is only meaningful from version 2.
inline std::string FxHeader(const char* kind, uint32_t version, const char* id, uint32_t count,
                            uint32_t current = 0) {
    std::string header =
        "CcnK" + BigEndian(0) + kind + BigEndian(version) + id + BigEndian(1) + BigEndian(count);
    if (std::strcmp(kind, "FxCk") != 0) {
        header += BigEndian(current);
        header.resize(156, '\0');
    }
    return header;
}

inline std::string ProgramRecord(const char* id, std::string name,
                                 const std::vector<float>& values) {
    name.resize(28, '\0');
    std::string record = FxHeader("FxCk", 1, id, static_cast<uint32_t>(values.size())) + name;
    for (const float value : values) {
        uint32_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        record += BigEndian(bits);
    }
    return record;
}

// A bank of the opaque-chunk kind; chunkSize 0 means the chunk's real size.
inline std::string ChunkBank(const std::string& chunk, const char* id, const char* kind = "FBCh",
                             uint32_t chunkSize = 0) {
    return FxHeader(kind, 1, id, 64) +
           BigEndian(chunkSize ? chunkSize : static_cast<uint32_t>(chunk.size())) + chunk;
}
