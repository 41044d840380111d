// Folders and files on POSIX systems: the XDG preferences folder, the loaded object's
// folder found through the dynamic loader, directories made with their parents, and the C
// library's rename, which replaces a file in one step.
#include "base/PlatformFolders.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string withSlash(std::string folder) {
    if (folder.empty() || folder.back() != '/') {
        folder += '/';
    }
    return folder;
}

} // namespace

bool GetUserPreferencesFolderURL(std::string& url) {
    const char* configHome = std::getenv("XDG_CONFIG_HOME");
    std::string folder;
    if (configHome && configHome[0] == '/') {
        folder = configHome;
    } else {
        const char* home = std::getenv("HOME");
        if (!home || home[0] != '/') {
            return false;
        }
        folder = withSlash(home) + ".config";
    }
    url = PathToFileURL(withSlash(folder));
    return true;
}

std::string GetModuleFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&GetModuleFolder), &info) == 0 || !info.dli_fname) {
        return {};
    }
    std::string path = info.dli_fname;
    char* resolved = realpath(path.c_str(), nullptr);
    if (resolved) {
        path = resolved;
        std::free(resolved);
    }
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

bool IsDirectory(const std::string& pathOrURL) {
    struct stat status {};
    return stat(FileURLToPath(pathOrURL).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool EnsureDirectory(const std::string& pathOrURL) {
    const std::string path = FileURLToPath(pathOrURL);
    for (size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        mkdir(path.substr(0, slash).c_str(), 0755);
    }
    mkdir(path.c_str(), 0755);
    return IsDirectory(path);
}

bool IsAbsolutePath(const char* path) {
    return path[0] == '/';
}

std::string NormalizedPath(const char* path) {
    return path;
}

bool RenameOver(const std::string& source, const std::string& destination) {
    return std::rename(source.c_str(), destination.c_str()) == 0;
}

bool RemoveFile(const std::string& path) {
    return std::remove(path.c_str()) == 0;
}

int CurrentProcessId() {
    return static_cast<int>(getpid());
}
