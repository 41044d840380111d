// Audio files on Windows: WAV files of our own reading (integer samples of 16, 24 or 32
// bits, floats of 32 or 64) and writing (32-bit floats, which keep every sample a plug-in
// produces), by UTF-16 names.
#include "tools/AudioFile.h"

#include "base/PlatformFolders.h"
#include "base/windows/WideText.h"
#include "tools/FileExtension.h"
#include "tools/ToolError.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

constexpr uint16_t kPcmTag = 1;
constexpr uint16_t kFloatTag = 3;
constexpr uint16_t kExtensibleTag = 0xFFFE;
constexpr int kFloat32Format = 32; // the one format written
constexpr uint32_t kRiffHeaderBytes = 12;
constexpr uint32_t kFloatFmtBytes = 18; // the float format's fmt chunk, with its extra size

FILE* openFile(const std::string& path, const wchar_t* mode) {
    return _wfopen(WideFromUtf8(path).c_str(), mode);
}

uint32_t le32(const unsigned char* bytes) {
    return bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<uint32_t>(bytes[3]) << 24;
}

uint16_t le16(const unsigned char* bytes) {
    return static_cast<uint16_t>(bytes[0] | bytes[1] << 8);
}

void put32(std::vector<unsigned char>& out, uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) {
        out.push_back(static_cast<unsigned char>(value >> shift));
    }
}

void put16(std::vector<unsigned char>& out, uint16_t value) {
    out.push_back(static_cast<unsigned char>(value));
    out.push_back(static_cast<unsigned char>(value >> 8));
}

} // namespace

struct AudioFileReader::File {
    FILE* handle = nullptr;
    int channels = 0, sampleRate = 0, bits = 0;
    bool isFloat = false;
    int64_t frames = 0, framesLeft = 0;
    std::vector<unsigned char> bytes; // one read's worth
};

struct AudioFileWriter::File {
    FILE* handle = nullptr;
    int channels = 0;
    uint64_t dataBytes = 0;
    std::vector<float> samples;
};

AudioFileReader::AudioFileReader(const std::string& path) : file(std::make_unique<File>()) {
    if (IsDirectory(path)) {
        throw ToolError("cannot read " + path + ": it is a folder");
    }
    file->handle = openFile(path, L"rb");
    if (file->handle == nullptr) {
        throw ToolError("cannot read " + path + ": " + std::strerror(errno));
    }
    const auto notAudio = [&](const char* why) {
        std::fclose(file->handle);
        return ToolError(path + " is not an audio file this program can read (" + why + ")");
    };
    unsigned char header[kRiffHeaderBytes];
    if (std::fread(header, 1, sizeof header, file->handle) != sizeof header ||
        std::memcmp(header, "RIFF", 4) != 0 || std::memcmp(header + 8, "WAVE", 4) != 0) {
        throw notAudio("not a WAV file");
    }
    // Chunks until the data: the format must come first; others are skipped.
    bool haveFormat = false;
    for (;;) {
        unsigned char chunk[8];
        if (std::fread(chunk, 1, sizeof chunk, file->handle) != sizeof chunk) {
            throw notAudio("no data chunk");
        }
        const uint32_t size = le32(chunk + 4);
        if (std::memcmp(chunk, "fmt ", 4) == 0 && size >= 16 && size < 1024) {
            std::vector<unsigned char> fmt(size);
            if (std::fread(fmt.data(), 1, size, file->handle) != size) {
                throw notAudio("cut short");
            }
            uint16_t tag = le16(&fmt[0]);
            if (tag == kExtensibleTag && size >= 26) {
                tag = le16(&fmt[24]); // the sub-format's first two bytes
            }
            file->channels = le16(&fmt[2]);
            file->sampleRate = static_cast<int>(le32(&fmt[4]));
            file->bits = le16(&fmt[14]);
            file->isFloat = tag == kFloatTag;
            const bool pcm =
                tag == kPcmTag && (file->bits == 16 || file->bits == 24 || file->bits == 32);
            const bool floats = file->isFloat && (file->bits == 32 || file->bits == 64);
            if (!pcm && !floats) {
                throw notAudio("an encoding other than 16, 24 or 32-bit integers or floats");
            }
            if (size % 2 == 1) {
                std::fseek(file->handle, 1, SEEK_CUR);
            }
            haveFormat = true;
        } else if (std::memcmp(chunk, "data", 4) == 0 && haveFormat) {
            if (file->channels < 1 || file->sampleRate < 1) {
                throw notAudio("no audio");
            }
            file->frames = size / (file->channels * (file->bits / 8));
            file->framesLeft = file->frames;
            return;
        } else if (std::fseek(file->handle, size + size % 2, SEEK_CUR) != 0) {
            throw notAudio("cut short");
        }
    }
}

AudioFileReader::~AudioFileReader() {
    std::fclose(file->handle);
}

int AudioFileReader::channels() const {
    return file->channels;
}

int AudioFileReader::sampleRate() const {
    return file->sampleRate;
}

int64_t AudioFileReader::frames() const {
    return file->frames;
}

int AudioFileReader::format() const {
    return kFloat32Format;
}

int64_t AudioFileReader::read(double* interleaved, int64_t count) {
    const int sampleBytes = file->bits / 8;
    const int64_t wanted = std::min(count, file->framesLeft);
    file->bytes.resize(static_cast<size_t>(wanted * file->channels * sampleBytes));
    const size_t got = std::fread(file->bytes.data(), 1, file->bytes.size(), file->handle);
    const int64_t frames = static_cast<int64_t>(got) / (file->channels * sampleBytes);
    file->framesLeft -= frames;
    const unsigned char* at = file->bytes.data();
    for (int64_t i = 0; i < frames * file->channels; ++i, at += sampleBytes) {
        if (file->isFloat && sampleBytes == 4) {
            float value;
            std::memcpy(&value, at, 4);
            interleaved[i] = value;
        } else if (file->isFloat) {
            std::memcpy(&interleaved[i], at, 8);
        } else {
            // Integers scaled so that full scale is 1, as audio libraries read them.
            int32_t value = 0;
            std::memcpy(reinterpret_cast<unsigned char*>(&value) + 4 - sampleBytes, at,
                        static_cast<size_t>(sampleBytes));
            interleaved[i] = value / 2147483648.0;
        }
    }
    return frames;
}

AudioFileWriter::AudioFileWriter(const std::string& path, const std::string& shownPath, int,
                                 int channels, int sampleRate)
    : shownPath(shownPath), file(std::make_unique<File>()) {
    file->channels = channels;
    file->handle = openFile(path, L"wb");
    if (file->handle == nullptr) {
        throw ToolError("cannot write " + shownPath + ": " + std::strerror(errno));
    }
    // The sizes are written again at close, when they are known.
    std::vector<unsigned char> header;
    header.insert(header.end(), {'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E'});
    header.insert(header.end(), {'f', 'm', 't', ' '});
    put32(header, kFloatFmtBytes);
    put16(header, kFloatTag);
    put16(header, static_cast<uint16_t>(channels));
    put32(header, static_cast<uint32_t>(sampleRate));
    put32(header, static_cast<uint32_t>(sampleRate * channels * 4));
    put16(header, static_cast<uint16_t>(channels * 4));
    put16(header, 32);
    put16(header, 0);
    header.insert(header.end(), {'d', 'a', 't', 'a', 0, 0, 0, 0});
    if (std::fwrite(header.data(), 1, header.size(), file->handle) != header.size()) {
        throw ToolError("cannot write " + shownPath + ": " + std::strerror(errno));
    }
}

AudioFileWriter::~AudioFileWriter() {
    if (file->handle != nullptr) {
        std::fclose(file->handle);
    }
}

void AudioFileWriter::write(const double* interleaved, int64_t count) {
    file->samples.assign(interleaved, interleaved + count * file->channels);
    const size_t bytes = file->samples.size() * sizeof(float);
    if (std::fwrite(file->samples.data(), 1, bytes, file->handle) != bytes) {
        throw ToolError("cannot write " + shownPath + ": " + std::strerror(errno));
    }
    file->dataBytes += bytes;
}

void AudioFileWriter::close() {
    FILE* handle = file->handle;
    file->handle = nullptr;
    // "WAVE", the format chunk and the data chunk, each chunk with its name and size.
    const uint64_t riffBytes = 4 + (8 + kFloatFmtBytes) + (8 + file->dataBytes);
    std::vector<unsigned char> riffSize, dataSize;
    put32(riffSize, static_cast<uint32_t>(riffBytes));
    put32(dataSize, static_cast<uint32_t>(file->dataBytes));
    const long dataSizeAt = kRiffHeaderBytes + 8 + kFloatFmtBytes + 4;
    const bool written = file->dataBytes <= UINT32_MAX - 64 &&
                         std::fseek(handle, 4, SEEK_SET) == 0 &&
                         std::fwrite(riffSize.data(), 1, 4, handle) == 4 &&
                         std::fseek(handle, dataSizeAt, SEEK_SET) == 0 &&
                         std::fwrite(dataSize.data(), 1, 4, handle) == 4;
    if (std::fclose(handle) != 0 || !written) {
        throw ToolError("cannot write " + shownPath + ": the file did not reach the disk");
    }
}

int floatWavFormat() {
    return kFloat32Format;
}

int chooseOutputFormat(const std::string& outputPath, int, int, int) {
    if (lowerCaseExtension(outputPath) != "wav") {
        throw ToolError("cannot tell an audio format from the name " + outputPath +
                        " (this build writes .wav)");
    }
    return kFloat32Format;
}
