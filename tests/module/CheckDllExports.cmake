# Fails unless the Windows module exports VSTPluginMain and nothing else, and needs no DLL
# but Windows' own: a plug-in shares the host's process with other plug-ins, and is copied
# into a host's folder alone.
cmake_policy(SET CMP0057 NEW)
set(windows_dlls advapi32 comdlg32 dwrite gdi32 imm32 kernel32 msimg32 msvcrt ole32 oleaut32
    shell32 shlwapi user32 usp10 uxtheme version winmm ws2_32)
execute_process(COMMAND ${OBJDUMP} -p ${MODULE} OUTPUT_VARIABLE listing RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${OBJDUMP} could not read ${MODULE}")
endif()

string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table\n([^\n]+\n)*" table "${listing}")
string(REGEX MATCHALL "\\[ *[0-9]+\\] [^\n]+" entries "${table}")
list(TRANSFORM entries REPLACE "^\\[ *[0-9]+\\] " "")
if(NOT entries STREQUAL "VSTPluginMain")
    message(FATAL_ERROR "the module exports: ${entries}")
endif()

string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${listing}")
foreach(import IN LISTS imports)
    string(REGEX REPLACE "^DLL Name: (.+)\\.[dD][lL][lL]$" "\\1" name "${import}")
    string(TOLOWER "${name}" name)
    if(NOT name IN_LIST windows_dlls)
        message(FATAL_ERROR "the module needs a DLL that Windows does not have: ${import}")
    endif()
endforeach()
