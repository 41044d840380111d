// Programs as a bank file holds them: the 72-byte records after the file's header, and the
// factory bank that ships beside the module.
#pragma once

#include "effect/AZephyraProgram.h"

#include <cstring>
#include <string>

constexpr std::size_t kBankHeaderBytes = 160;

// What the desktop tests copy from the copy menu (its second choosable entry: program 0 is
// the current one), and the slot they save into (five steps down from the current program).
constexpr int kCopiedProgram = 2;
constexpr int kSavedSlot = 5;

// The program's record in a bank file's bytes; all zero when the file is too short.
inline ZephyraProgramRecord RecordIn(const std::string& bank, int program) {
    ZephyraProgramRecord record{};
    const std::size_t offset = kBankHeaderBytes + sizeof(record) * program;
    if (bank.size() >= offset + sizeof(record))
        std::memcpy(&record, bank.data() + offset, sizeof(record));
    return record;
}

// The factory bank file beside a module.
inline std::string FactoryBankBeside(const std::string& module) {
    return module.substr(0, module.rfind('/') + 1) + "ZephyraDef.fxb";
}
