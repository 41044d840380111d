// The default bank file: a VST bank file of the opaque-chunk kind whose header integers
// are big-endian, followed by the bank chunk exactly as the host receives it.
#pragma once

#include "base/CFile.h"

#include <cstdint>
#include <vector>

// Big-endian integers read and written one byte at a time.
uint32_t getDWordFile(CFile& file);
uint16_t getWordFile(CFile& file);
bool putDWordFile(CFile& file, uint32_t value);

enum class BankFileStatus {
    kNotOpened,    // the file does not exist or cannot be read
    kNotBankFile,  // the first four bytes are not "CcnK"
    kNotChunkBank, // a bank file, but not of the opaque-chunk kind
    kOtherPlugin,  // another plug-in's bank
    kDamaged,      // a chunk size over one bank, or fewer bytes than it announces
    kRead,
};

// Reads the bank chunk of the file; chunk holds it when the result is kRead.
BankFileStatus ReadBankFile(const char* pathOrURL, int32_t uniqueId, std::vector<char>& chunk);

// Writes the whole file: header (byte-size field 0) and the chunk.
bool WriteBankFile(CFile& file, int32_t uniqueId, const void* chunk, uint32_t chunkSize);
