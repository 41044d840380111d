#include "tools/PendingOutput.h"

#include "base/PlatformFolders.h"
#include "tools/TemporaryFile.h"
#include "tools/ToolError.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// Temporary files a signal handler must remove. Plain arrays: nothing else is safe to touch
// from inside a handler.
constexpr int kSlots = 4;
constexpr std::size_t kPathCapacity = 4096;
char slotPaths[kSlots][kPathCapacity];
std::atomic<bool> slotUsed[kSlots];

void removeTemporariesAndReraise(int signalNumber) {
    for (int slot = 0; slot < kSlots; ++slot) {
        if (slotUsed[slot].load()) {
            std::remove(slotPaths[slot]);
        }
    }
    std::signal(signalNumber, SIG_DFL);
    std::raise(signalNumber);
}

void installSignalHandlers() {
    static bool installed = false;
    if (!installed) {
        for (int signalNumber : fatalSignals()) {
            std::signal(signalNumber, removeTemporariesAndReraise);
        }
        installed = true;
    }
}

int claimSlot(const std::string& path) {
    if (path.size() >= kPathCapacity) {
        return -1;
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        if (!slotUsed[slot].load()) {
            std::memcpy(slotPaths[slot], path.c_str(), path.size() + 1);
            slotUsed[slot].store(true);
            return slot;
        }
    }
    return -1;
}

} // namespace

PendingOutput::PendingOutput(const std::string& finalPath) : destination(finalPath) {
    if (IsDirectory(finalPath)) {
        throw ToolError("cannot write " + finalPath + ": it is a folder");
    }
    const std::size_t slash = finalPath.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : finalPath.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? finalPath : finalPath.substr(slash + 1);
    std::string pattern = folder + "." + name + ".XXXXXX";
    if (!createTemporaryFile(pattern, finalPath)) {
        throw ToolError("cannot write " + finalPath + ": " + std::strerror(errno));
    }
    temporary = pattern;
    installSignalHandlers();
    signalSlot = claimSlot(temporary);
}

PendingOutput::~PendingOutput() {
    if (!committed) {
        RemoveFile(temporary);
    }
    if (signalSlot >= 0) {
        slotUsed[signalSlot].store(false);
    }
}

void PendingOutput::commit() {
    if (!RenameOver(temporary, destination)) {
        throw ToolError("cannot write " + destination + ": " + std::strerror(errno));
    }
    committed = true;
}
