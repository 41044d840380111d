// Draws the panel's bitmaps and writes them as bmpNNNNN.png into the folder it is given.

#include "resources/artwork/Artwork.h"

#include <cstdio>
#include <cstring>
#include <string>

int main(int argc, char** argv) {
    // The one argument is a path; anything that looks like an option is refused rather
    // than taken for a file name.
    const bool help =
        argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0);
    if (argc != 2 || argv[1][0] == '-') {
        std::fprintf(help ? stdout : stderr, "usage: %s <output folder>\n", argv[0]);
        return help ? 0 : 2;
    }
    const std::string folder = argv[1];
    for (const ArtworkEntry& entry : ArtworkTable()) {
        char name[32];
        std::snprintf(name, sizeof name, "/bmp%05d.png", entry.resourceId);
        const std::string path = folder + name;
        if (!entry.draw().WritePng(path)) {
            std::fprintf(stderr, "cannot write %s\n", path.c_str());
            return 1;
        }
    }
    return 0;
}
