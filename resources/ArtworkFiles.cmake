# The artwork's files: one set per scale, drawn for the screens' common scales; the editor
# takes the nearest larger set.
set(ZEPHYRA_ARTWORK_SCALES 1 1.5 2 3)

# zephyra_artwork_files(VAR DIR SCALE): the PNG files of one scale in DIR.
function(zephyra_artwork_files var dir scale)
    set(suffix "@${scale}x.png")
    if(scale STREQUAL "1")
        set(suffix ".png")
    endif()
    set(files "")
    foreach(id RANGE 5000 5013)
        list(APPEND files ${dir}/bmp0${id}${suffix})
    endforeach()
    set(${var} ${files} PARENT_SCOPE)
endfunction()
