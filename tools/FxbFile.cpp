#include "tools/FxbFile.h"

#include "tools/FourCharacterText.h"
#include "tools/PluginInstance.h"
#include "tools/ToolError.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>

namespace {

constexpr std::size_t kBankHeaderSize = 156;
constexpr std::size_t kProgramHeaderSize = 56;
constexpr std::size_t kProgramNameSize = 28;

// Reads the big-endian fields of a file held in memory, with bounds checks that name the
// file when it is cut short.
class BigEndianReader {
public:
    BigEndianReader(const std::vector<uint8_t>& bytes, const std::string& path)
        : bytes(bytes), path(path) {}

    void seek(std::size_t offset) { position = offset; }
    std::size_t offset() const { return position; }

    const uint8_t* take(std::size_t count) {
        if (count > bytes.size() || position > bytes.size() - count) {
            throw ToolError(path + " is not a valid bank file: it ends too early");
        }
        const uint8_t* start = bytes.data() + position;
        position += count;
        return start;
    }

    uint32_t word() {
        const uint8_t* b = take(4);
        return (uint32_t{b[0]} << 24) | (uint32_t{b[1]} << 16) | (uint32_t{b[2]} << 8) | b[3];
    }

    int32_t integer() { return static_cast<int32_t>(word()); }

    float real() {
        const uint32_t bits = word();
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    bool tag(const char* expected) { return std::memcmp(take(4), expected, 4) == 0; }

private:
    const std::vector<uint8_t>& bytes;
    const std::string& path;
    std::size_t position = 0;
};

std::vector<uint8_t> readWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw ToolError("cannot read bank " + path + ": " + std::strerror(errno));
    }
    return std::vector<uint8_t>(std::istreambuf_iterator<char>(file),
                                std::istreambuf_iterator<char>());
}

BankProgram readProgram(BigEndianReader& reader, const std::string& path) {
    const std::size_t start = reader.offset();
    if (!reader.tag("CcnK")) {
        throw ToolError(path + " is not a valid bank file: a program record is damaged");
    }
    reader.word(); // byte size
    if (!reader.tag("FxCk")) {
        throw ToolError(path + " is not a valid bank file: a program is not a parameter list");
    }
    reader.seek(start + 24);
    const int32_t count = reader.integer();
    if (count < 0) {
        throw ToolError(path + " is not a valid bank file: a program has a negative size");
    }
    const uint8_t* name = reader.take(kProgramNameSize);
    BankProgram program;
    program.name.assign(reinterpret_cast<const char*>(name),
                        strnlen(reinterpret_cast<const char*>(name), kProgramNameSize));
    reader.seek(start + kProgramHeaderSize);
    for (int32_t i = 0; i < count; ++i) {
        program.parameters.push_back(reader.real());
    }
    return program;
}

} // namespace

FxbFile readBankFile(const std::string& path) {
    const std::vector<uint8_t> bytes = readWholeFile(path);
    BigEndianReader reader(bytes, path);
    if (bytes.size() < kBankHeaderSize || !reader.tag("CcnK")) {
        throw ToolError(path + " is not a VST bank file");
    }
    reader.word(); // byte size
    FxbFile bank;
    if (reader.tag("FBCh")) {
        bank.isChunk = true;
    } else {
        reader.seek(8);
        if (!reader.tag("FxBk")) {
            throw ToolError(path + " is a VST file but not a bank");
        }
    }
    const int32_t version = reader.integer();
    bank.pluginId = reader.integer();
    reader.word(); // plug-in version
    const int32_t programCount = reader.integer();
    // Banks of format version 2 and later remember the selected program.
    const int32_t current = reader.integer();
    bank.currentProgram = version >= 2 ? current : 0;
    reader.seek(kBankHeaderSize);

    if (bank.isChunk) {
        const uint32_t size = reader.word();
        const uint8_t* data = reader.take(size);
        bank.chunk.assign(data, data + size);
        return bank;
    }
    if (programCount < 0) {
        throw ToolError(path + " is not a valid bank file: negative program count");
    }
    for (int32_t i = 0; i < programCount; ++i) {
        bank.programs.push_back(readProgram(reader, path));
    }
    return bank;
}

void loadBank(PluginInstance& plugin, const FxbFile& bank, const std::string& path) {
    const int32_t pluginId = plugin.effect().uniqueID;
    if (bank.pluginId != pluginId) {
        throw ToolError("bank " + path + " belongs to plug-in '" +
                        fourCharacterText(bank.pluginId) + "', not to '" +
                        fourCharacterText(pluginId) + "'");
    }
    if (bank.isChunk) {
        if (!plugin.hasFlag(effFlagsProgramChunks)) {
            throw ToolError("bank " + path +
                            " holds a chunk, but the plug-in does not take "
                            "chunks");
        }
        plugin.dispatch(effSetChunk, 0, static_cast<intptr_t>(bank.chunk.size()),
                        const_cast<uint8_t*>(bank.chunk.data()));
        return;
    }
    const int programs =
        std::min<int>(plugin.numPrograms(), static_cast<int>(bank.programs.size()));
    for (int program = 0; program < programs; ++program) {
        const BankProgram& record = bank.programs[program];
        plugin.dispatch(effSetProgram, 0, program);
        // Hosts hand over at most 24 bytes including the terminator.
        std::string name = record.name.substr(0, 23);
        plugin.dispatch(effSetProgramName, 0, 0, name.data());
        const int parameters =
            std::min<int>(plugin.numParameters(), static_cast<int>(record.parameters.size()));
        for (int index = 0; index < parameters; ++index) {
            plugin.setParameter(index, record.parameters[index]);
        }
    }
    if (bank.currentProgram >= 0 && bank.currentProgram < plugin.numPrograms()) {
        plugin.dispatch(effSetProgram, 0, bank.currentProgram);
    }
}
