# Fails unless the module's dynamic symbol table defines VSTPluginMain and nothing else:
# a plug-in shares the host's process with other plug-ins.
execute_process(COMMAND nm -D --defined-only ${MODULE}
    OUTPUT_VARIABLE listing RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "nm could not read ${MODULE}")
endif()
string(REGEX MATCHALL "[^\n]+" lines "${listing}")
set(names "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^.* " "" name "${line}")
    list(APPEND names ${name})
endforeach()
if(NOT names STREQUAL "VSTPluginMain")
    message(FATAL_ERROR "the module exports: ${names}")
endif()
