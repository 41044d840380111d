// Windows has no mkstemp: random names are tried until one is new.
#include "tools/TemporaryFile.h"

#include "base/windows/WideText.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <random>
#include <sys/stat.h>

bool createTemporaryFile(std::string& pattern, const std::string&) {
    std::random_device random;
    const size_t xs = pattern.size() - 6;
    for (int attempt = 0; attempt < 100; ++attempt) {
        char letters[7];
        std::snprintf(letters, sizeof letters, "%06x", random() & 0xFFFFFFu);
        pattern.replace(xs, 6, letters);
        const int descriptor =
            _wopen(WideFromUtf8(pattern).c_str(), _O_CREAT | _O_EXCL | _O_RDWR | _O_BINARY,
                   _S_IREAD | _S_IWRITE);
        if (descriptor >= 0) {
            _close(descriptor);
            return true;
        }
        if (errno != EEXIST) {
            return false;
        }
    }
    return false;
}

std::vector<int> fatalSignals() {
    return {SIGINT, SIGTERM, SIGSEGV, SIGABRT, SIGFPE};
}
