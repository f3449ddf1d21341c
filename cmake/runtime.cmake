# The compiler's runtime DLLs stand beside every program, in the build tree and in the install tree: nothing else finds them
# on a machine that has no compiler. Sets VANTOR_RUNTIME_DLLS.

set(VANTOR_RUNTIME_DLLS)
if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        set(unwinder libgcc_s_seh-1.dll)
    else()
        set(unwinder libgcc_s_dw2-1.dll)
    endif()
    foreach(name IN ITEMS libstdc++-6.dll ${unwinder} libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
            OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT IS_ABSOLUTE "${path}")
            find_file(runtime_${name} ${name} PATHS /usr/${VANTOR_TRIPLE}/lib NO_DEFAULT_PATH REQUIRED)
            set(path ${runtime_${name}})
        endif()
        list(APPEND VANTOR_RUNTIME_DLLS ${path})
    endforeach()
    file(COPY ${VANTOR_RUNTIME_DLLS} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
endif()
