// Draws the panel's bitmaps and writes them as bmpNNNNN.png into the folder it is given.

#include "Artwork.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <output folder>\n", argv[0]);
        return 2;
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
