#include "tools/TemporaryFile.h"

#include <csignal>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace {

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

bool createTemporaryFile(std::string& pattern, const std::string& destination) {
    const int descriptor = mkstemp(pattern.data());
    if (descriptor < 0) {
        return false;
    }
    fchmod(descriptor, modeForNewFile(destination));
    close(descriptor);
    return true;
}

std::vector<int> fatalSignals() {
    return {SIGINT, SIGTERM, SIGHUP, SIGSEGV, SIGBUS, SIGABRT, SIGFPE};
}
