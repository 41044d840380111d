# Writes a C++ source holding PNG files as a table of resource id, scale and bytes.
# cmake -DOUTPUT=<file.cpp> "-DPNGS=<bmpNNNNN.png;bmpNNNNN@2x.png;...>" -P EmbedPngs.cmake
# The id is the number in the file name; the scale follows an "@" (1 without).

string(REPEAT "0x..," 16 sixteen_bytes)
set(arrays "")
set(rows "")
foreach(png ${PNGS})
    get_filename_component(file ${png} NAME)
    string(REGEX MATCH "^bmp0*([0-9]+)(@([0-9.]+)x)?\\.png$" matched ${file})
    if(NOT matched)
        message(FATAL_ERROR "not an artwork file name: ${file}")
    endif()
    set(id ${CMAKE_MATCH_1})
    set(scale 1)
    if(CMAKE_MATCH_3)
        set(scale ${CMAKE_MATCH_3})
    endif()
    string(MAKE_C_IDENTIFIER "kBitmap${id}_${scale}" array)
    file(READ ${png} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(REGEX REPLACE "(${sixteen_bytes})" "\\1\n    " bytes "${bytes}")
    string(APPEND arrays "const unsigned char ${array}[] = {\n    ${bytes}\n};\n")
    string(APPEND rows "    {${id}, ${scale}, ${array}, sizeof ${array}},\n")
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
