// Audio files through libsndfile: reading any format it knows, writing the format named by
// the output's extension.
#pragma once

#include "tools/SignalSource.h"

#include <sndfile.h>
#include <string>

class AudioFileReader : public SignalSource {
public:
    // Throws ToolError for a missing, unreadable or non-audio file.
    explicit AudioFileReader(const std::string& path);
    ~AudioFileReader() override;
    AudioFileReader(const AudioFileReader&) = delete;
    AudioFileReader& operator=(const AudioFileReader&) = delete;

    int channels() const override { return info.channels; }
    int sampleRate() const override { return info.samplerate; }
    int64_t frames() const override { return info.frames; }
    int format() const { return info.format; }
    int64_t read(double* interleaved, int64_t count) override;

private:
    SF_INFO info{};
    SNDFILE* file = nullptr;
};

class AudioFileWriter {
public:
    // Writes to `path` in `format`; `shownPath` names the file in error messages (the
    // writer is given the temporary name of a PendingOutput).
    AudioFileWriter(const std::string& path, const std::string& shownPath, int format, int channels,
                    int sampleRate);
    ~AudioFileWriter();
    AudioFileWriter(const AudioFileWriter&) = delete;
    AudioFileWriter& operator=(const AudioFileWriter&) = delete;

    void write(const double* interleaved, int64_t count);
    // Flushes and closes; throws ToolError when the data did not reach the disk.
    void close();

private:
    std::string shownPath;
    SNDFILE* file = nullptr;
};

// The libsndfile format to write `outputPath` in: the container from its extension, the
// sample encoding of the input when that container takes it. Throws ToolError for an
// extension that names no audio format.
int chooseOutputFormat(const std::string& outputPath, int inputFormat, int channels,
                       int sampleRate);
