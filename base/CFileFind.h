// The toolkit's file look-up: whether a path or file:// URL names an existing file.
#pragma once

class CFileFind {
public:
    bool FindFile(const char* pathOrURL);
};
