#include "tools/AudioFile.h"

#include "tools/ToolError.h"

#include <cctype>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Container {
    const char* extension;
    int majorFormat;
    int fallbackEncoding; // when the input's encoding does not fit the container
};

constexpr Container kContainers[] = {
    {"wav", SF_FORMAT_WAV, SF_FORMAT_FLOAT},           {"w64", SF_FORMAT_W64, SF_FORMAT_FLOAT},
    {"rf64", SF_FORMAT_RF64, SF_FORMAT_FLOAT},         {"flac", SF_FORMAT_FLAC, SF_FORMAT_PCM_24},
    {"aif", SF_FORMAT_AIFF, SF_FORMAT_FLOAT},          {"aiff", SF_FORMAT_AIFF, SF_FORMAT_FLOAT},
    {"caf", SF_FORMAT_CAF, SF_FORMAT_FLOAT},           {"au", SF_FORMAT_AU, SF_FORMAT_FLOAT},
    {"ogg", SF_FORMAT_OGG, SF_FORMAT_VORBIS},          {"opus", SF_FORMAT_OGG, SF_FORMAT_OPUS},
    {"mp3", SF_FORMAT_MPEG, SF_FORMAT_MPEG_LAYER_III},
};

std::string lowerCaseExtension(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    const std::size_t slash = path.rfind('/');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) {
        return "";
    }
    std::string extension = path.substr(dot + 1);
    for (char& c : extension) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return extension;
}

bool formatFits(int format, int channels, int sampleRate) {
    SF_INFO probe{};
    probe.format = format;
    probe.channels = channels;
    probe.samplerate = sampleRate;
    return sf_format_check(&probe) != 0;
}

} // namespace

AudioFileReader::AudioFileReader(const std::string& path) {
    // libsndfile says little about why a file could not be opened, so ask the system first.
    const int descriptor = open(path.c_str(), O_RDONLY);
    if (descriptor < 0) {
        throw ToolError("cannot read " + path + ": " + std::strerror(errno));
    }
    struct stat status;
    const bool isFolder = fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    ::close(descriptor);
    if (isFolder) {
        throw ToolError("cannot read " + path + ": it is a folder");
    }
    file = sf_open(path.c_str(), SFM_READ, &info);
    if (file == nullptr) {
        throw ToolError(path + " is not an audio file libsndfile can read (" +
                        sf_strerror(nullptr) + ")");
    }
    if (info.channels < 1 || info.samplerate < 1) {
        sf_close(file);
        throw ToolError(path + " holds no audio");
    }
}

AudioFileReader::~AudioFileReader() {
    sf_close(file);
}

int64_t AudioFileReader::read(double* interleaved, int64_t count) {
    return sf_readf_double(file, interleaved, count);
}

AudioFileWriter::AudioFileWriter(const std::string& path, const std::string& shownPath, int format,
                                 int channels, int sampleRate)
    : shownPath(shownPath) {
    SF_INFO info{};
    info.format = format;
    info.channels = channels;
    info.samplerate = sampleRate;
    file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (file == nullptr) {
        throw ToolError("cannot write " + shownPath + ": " + sf_strerror(nullptr));
    }
    // Integer formats clip instead of wrapping round when an equaliser boosts past full scale.
    sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

AudioFileWriter::~AudioFileWriter() {
    if (file != nullptr) {
        sf_close(file);
    }
}

void AudioFileWriter::write(const double* interleaved, int64_t count) {
    if (sf_writef_double(file, interleaved, count) != count) {
        throw ToolError("cannot write " + shownPath + ": " + sf_strerror(file));
    }
}

void AudioFileWriter::close() {
    const int result = sf_close(file);
    file = nullptr;
    if (result != 0) {
        throw ToolError("cannot write " + shownPath + ": " + sf_error_number(result));
    }
}

int chooseOutputFormat(const std::string& outputPath, int inputFormat, int channels,
                       int sampleRate) {
    const std::string extension = lowerCaseExtension(outputPath);
    for (const Container& container : kContainers) {
        if (extension != container.extension) {
            continue;
        }
        const int keptEncoding = container.majorFormat | (inputFormat & SF_FORMAT_SUBMASK);
        if (formatFits(keptEncoding, channels, sampleRate)) {
            return keptEncoding;
        }
        const int fallback = container.majorFormat | container.fallbackEncoding;
        if (formatFits(fallback, channels, sampleRate)) {
            return fallback;
        }
        throw ToolError("cannot write " + outputPath + ": its format does not take " +
                        std::to_string(channels) + " channels at " + std::to_string(sampleRate) +
                        " Hz");
    }
    throw ToolError("cannot tell an audio format from the name " + outputPath +
                    " (use .wav, .flac, .aiff, .ogg, ...)");
}
