#include "base/CFileFind.h"

#include "base/PlatformFolders.h"

#include <sys/stat.h>

bool CFileFind::FindFile(const char* pathOrURL) {
    struct stat status {};
    return pathOrURL && stat(FileURLToPath(pathOrURL).c_str(), &status) == 0 &&
           S_ISREG(status.st_mode);
}
