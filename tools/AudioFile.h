// Audio files: on Linux through libsndfile, reading any format it knows and writing the
// format named by the output's extension; on Windows WAV files of our own reading and
// writing. A format is the implementation's own number, passed from reader to writer.
#pragma once

#include "tools/SignalSource.h"

#include <memory>
#include <string>

class AudioFileReader : public SignalSource {
public:
    // Throws ToolError for a missing, unreadable or non-audio file.
    explicit AudioFileReader(const std::string& path);
    ~AudioFileReader() override;
    AudioFileReader(const AudioFileReader&) = delete;
    AudioFileReader& operator=(const AudioFileReader&) = delete;

    int channels() const override;
    int sampleRate() const override;
    int64_t frames() const override;
    int format() const;
    int64_t read(double* interleaved, int64_t count) override;

private:
    struct File;
    std::unique_ptr<File> file;
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
    struct File;
    std::string shownPath;
    std::unique_ptr<File> file;
};

// The format of a WAV file of 32-bit floats: what a signal without a file of its own (the
// demo) is taken to come in.
int floatWavFormat();

// The format to write `outputPath` in: the container from its extension, the sample
// encoding of the input when that container takes it. Throws ToolError for an extension
// that names no audio format.
int chooseOutputFormat(const std::string& outputPath, int inputFormat, int channels,
                       int sampleRate);
