#include "base/PlatformFolders.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <sys/stat.h>

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

bool isUnreserved(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/' ||
           c == '-' || c == '_' || c == '.' || c == '~';
}

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

std::string FileURLToPath(const std::string& pathOrURL) {
    static const std::string scheme = "file://";
    if (pathOrURL.compare(0, scheme.size(), scheme) != 0) {
        return pathOrURL;
    }
    std::string path;
    size_t i = scheme.size();
    // "file://localhost/x" and "file:///x" both name /x.
    const size_t firstSlash = pathOrURL.find('/', i);
    i = firstSlash == std::string::npos ? pathOrURL.size() : firstSlash;
    for (; i < pathOrURL.size(); ++i) {
        const char c = pathOrURL[i];
        if (c == '%' && i + 2 < pathOrURL.size() && hexValue(pathOrURL[i + 1]) >= 0 &&
            hexValue(pathOrURL[i + 2]) >= 0) {
            path += static_cast<char>(hexValue(pathOrURL[i + 1]) * 16 + hexValue(pathOrURL[i + 2]));
            i += 2;
        } else {
            path += c;
        }
    }
    return path;
}

std::string PathToFileURL(const std::string& path) {
    std::string url = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (isUnreserved(byte)) {
            url += c;
        } else {
            char escape[4];
            std::snprintf(escape, sizeof(escape), "%%%02X", byte);
            url += escape;
        }
    }
    return url;
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
