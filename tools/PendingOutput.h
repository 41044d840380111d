// An output file written under a temporary name in its final folder and renamed into place
// only when complete: a failure, an exception or Ctrl-C never leaves a partial file and
// never destroys the file that was there before.
#pragma once

#include <string>

class PendingOutput {
public:
    // Creates the temporary file at once, so an unwritable destination is reported before
    // any work is done. Throws ToolError.
    explicit PendingOutput(const std::string& finalPath);
    ~PendingOutput();
    PendingOutput(const PendingOutput&) = delete;
    PendingOutput& operator=(const PendingOutput&) = delete;

    const std::string& temporaryPath() const { return temporary; }
    const std::string& path() const { return destination; }
    // Renames the finished file into place; throws ToolError when that fails.
    void commit();

private:
    std::string destination;
    std::string temporary;
    int signalSlot = -1;
    bool committed = false;
};
