// File URLs and paths, the same on every system; a Windows path begins with its drive
// ("C:/Users"), which a URL places after a slash ("file:///C:/Users").
#include "base/PlatformFolders.h"

#include <cstdio>

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

} // namespace

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
#ifdef _WIN32
    if (path.size() >= 3 && path[0] == '/' && path[2] == ':') {
        path.erase(0, 1);
    }
#endif
    return path;
}

std::string PathToFileURL(const std::string& path) {
    const bool startsWithDrive = path.size() >= 2 && path[1] == ':';
    std::string url = startsWithDrive ? "file:///" : "file://";
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
