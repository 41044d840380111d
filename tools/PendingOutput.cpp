#include "tools/PendingOutput.h"

#include "tools/ToolError.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

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
            unlink(slotPaths[slot]);
        }
    }
    std::signal(signalNumber, SIG_DFL);
    std::raise(signalNumber);
}

void installSignalHandlers() {
    static bool installed = false;
    if (!installed) {
        for (int signalNumber : {SIGINT, SIGTERM, SIGHUP, SIGSEGV, SIGBUS, SIGABRT, SIGFPE}) {
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

mode_t modeForNewFile(const std::string& destination) {
    struct stat existing;
    if (stat(destination.c_str(), &existing) == 0) {
        return existing.st_mode & 07777;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

PendingOutput::PendingOutput(const std::string& finalPath) : destination(finalPath) {
    struct stat existing;
    if (stat(finalPath.c_str(), &existing) == 0 && S_ISDIR(existing.st_mode)) {
        throw ToolError("cannot write " + finalPath + ": it is a folder");
    }
    const std::size_t slash = finalPath.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : finalPath.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? finalPath : finalPath.substr(slash + 1);
    std::string pattern = folder + "." + name + ".XXXXXX";
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    const int descriptor = mkstemp(buffer.data());
    if (descriptor < 0) {
        throw ToolError("cannot write " + finalPath + ": " + std::strerror(errno));
    }
    fchmod(descriptor, modeForNewFile(finalPath));
    close(descriptor);
    temporary = buffer.data();
    installSignalHandlers();
    signalSlot = claimSlot(temporary);
}

PendingOutput::~PendingOutput() {
    if (!committed) {
        unlink(temporary.c_str());
    }
    if (signalSlot >= 0) {
        slotUsed[signalSlot].store(false);
    }
}

void PendingOutput::commit() {
    if (std::rename(temporary.c_str(), destination.c_str()) != 0) {
        throw ToolError("cannot write " + destination + ": " + std::strerror(errno));
    }
    committed = true;
}
