# zantlog_add_library(NAME [SOURCES file...] [WINDOWS_SOURCES file...] [DEFINITIONS name...] [DEPENDS target...])
#
# One static library for one folder. WINDOWS_SOURCES are those that call Windows (named *_windows.cpp); a native
# build leaves them out. DEFINITIONS hold for the library and for those that link it. While there is no source
# yet, NAME is an interface library, so that those above it configure.
function(zantlog_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;WINDOWS_SOURCES;DEFINITIONS;DEPENDS")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${name}: not understood: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    set(sources ${arg_SOURCES})
    if(WIN32)
        list(APPEND sources ${arg_WINDOWS_SOURCES})
    endif()

    if(sources)
        add_library(${name} STATIC ${sources})
        target_link_libraries(${name} PRIVATE zantlog_flags)
        set(scope PUBLIC)
    else()
        add_library(${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_include_directories(${name} ${scope} ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
    target_compile_definitions(${name} ${scope} ZANTLOG_STATIC ${arg_DEFINITIONS})
    target_link_libraries(${name} ${scope} ${arg_DEPENDS})
endfunction()
