// Audio files through libsndfile.
#include "tools/AudioFile.h"

#include "tools/FileExtension.h"
#include "tools/ToolError.h"

#include <sndfile.h>

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

bool formatFits(int format, int channels, int sampleRate) {
    SF_INFO probe{};
    probe.format = format;
    probe.channels = channels;
    probe.samplerate = sampleRate;
    return sf_format_check(&probe) != 0;
}

} // namespace

struct AudioFileReader::File {
    SF_INFO info{};
    SNDFILE* handle = nullptr;
};

struct AudioFileWriter::File {
    SNDFILE* handle = nullptr;
};

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
    SF_INFO info{};
    SNDFILE* handle = sf_open(path.c_str(), SFM_READ, &info);
    if (handle == nullptr) {
        throw ToolError(path + " is not an audio file libsndfile can read (" +
                        sf_strerror(nullptr) + ")");
    }
    if (info.channels < 1 || info.samplerate < 1) {
        sf_close(handle);
        throw ToolError(path + " holds no audio");
    }
    file.reset(new File{info, handle});
}

AudioFileReader::~AudioFileReader() {
    sf_close(file->handle);
}

int AudioFileReader::channels() const {
    return file->info.channels;
}

int AudioFileReader::sampleRate() const {
    return file->info.samplerate;
}

int64_t AudioFileReader::frames() const {
    return file->info.frames;
}

int AudioFileReader::format() const {
    return file->info.format;
}

int64_t AudioFileReader::read(double* interleaved, int64_t count) {
    return sf_readf_double(file->handle, interleaved, count);
}

AudioFileWriter::AudioFileWriter(const std::string& path, const std::string& shownPath, int format,
                                 int channels, int sampleRate)
    : shownPath(shownPath), file(std::make_unique<File>()) {
    SF_INFO info{};
    info.format = format;
    info.channels = channels;
    info.samplerate = sampleRate;
    file->handle = sf_open(path.c_str(), SFM_WRITE, &info);
    if (file->handle == nullptr) {
        throw ToolError("cannot write " + shownPath + ": " + sf_strerror(nullptr));
    }
    // Integer formats clip instead of wrapping round when an equaliser boosts past full scale.
    sf_command(file->handle, SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

AudioFileWriter::~AudioFileWriter() {
    if (file->handle != nullptr) {
        sf_close(file->handle);
    }
}

void AudioFileWriter::write(const double* interleaved, int64_t count) {
    if (sf_writef_double(file->handle, interleaved, count) != count) {
        throw ToolError("cannot write " + shownPath + ": " + sf_strerror(file->handle));
    }
}

void AudioFileWriter::close() {
    const int result = sf_close(file->handle);
    file->handle = nullptr;
    if (result != 0) {
        throw ToolError("cannot write " + shownPath + ": " + sf_error_number(result));
    }
}

int floatWavFormat() {
    return SF_FORMAT_WAV | SF_FORMAT_FLOAT;
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
