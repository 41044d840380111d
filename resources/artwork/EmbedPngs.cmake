# Writes a C++ source holding PNG files as a table of resource id and bytes.
# cmake -DOUTPUT=<file.cpp> "-DPNGS=<bmpNNNNN.png;...>" -P EmbedPngs.cmake
# The id is the number in the file name.

string(REPEAT "0x..," 16 sixteen_bytes)
set(arrays "")
set(rows "")
foreach(png ${PNGS})
    get_filename_component(name ${png} NAME_WE)
    string(REGEX REPLACE "^bmp0*" "" id ${name})
    file(READ ${png} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(REGEX REPLACE "(${sixteen_bytes})" "\\1\n    " bytes "${bytes}")
    string(APPEND arrays "const unsigned char kBitmap${id}[] = {\n    ${bytes}\n};\n")
    string(APPEND rows "    {${id}, kBitmap${id}, sizeof kBitmap${id}},\n")
endforeach()

file(WRITE ${OUTPUT}.new
"// Written by the build from the generated artwork; not kept in the repository.
#include \"resources/artwork/EmbeddedArtwork.h\"

namespace {
${arrays}} // namespace

const EmbeddedResource kPanelArtwork[] = {
${rows}};
const std::size_t kPanelArtworkCount = sizeof kPanelArtwork / sizeof kPanelArtwork[0];
")
# Only a changed table recompiles the library.
file(COPY_FILE ${OUTPUT}.new ${OUTPUT} ONLY_IF_DIFFERENT)
file(REMOVE ${OUTPUT}.new)
