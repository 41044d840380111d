// Draws the panel's bitmaps and writes them as bmpNNNNN.png into the folder it is given.

#include "resources/OutputPathArgument.h"
#include "resources/artwork/Artwork.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    int exitStatus = 0;
    const char* folderArgument = OutputPathArgument(argc, argv, "<output folder>", &exitStatus);
    if (!folderArgument)
        return exitStatus;
    const std::string folder = folderArgument;
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
