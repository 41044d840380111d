// Draws the panel's bitmaps at one scale and writes them into the folder it is given:
// bmpNNNNN.png at scale 1, bmpNNNNN@Sx.png at scale S (the name the build embeds them by).

#include "resources/artwork/Artwork.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

int main(int argc, char** argv) {
    char* end = nullptr;
    const double scale = argc == 3 ? std::strtod(argv[2], &end) : 0.0;
    if (argc != 3 || argv[1][0] == '-' || end == argv[2] || *end != '\0' || !(scale > 0.0)) {
        const bool help =
            argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0);
        std::fprintf(help ? stdout : stderr, "usage: %s <output folder> <scale>\n", argv[0]);
        return help ? 0 : 2;
    }
    Canvas::SetScale(scale);
    const std::string suffix = scale == 1.0 ? ".png" : std::string("@") + argv[2] + "x.png";
    for (const ArtworkEntry& entry : ArtworkTable()) {
        char name[32];
        std::snprintf(name, sizeof name, "/bmp%05d", entry.resourceId);
        const std::string path = argv[1] + (name + suffix);
        if (!entry.draw().WritePng(path)) {
            std::fprintf(stderr, "cannot write %s\n", path.c_str());
            return 1;
        }
    }
    return 0;
}
