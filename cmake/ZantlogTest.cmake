# zantlog_add_tests(FOLDER [WINDOWS_ONLY] [TIMEOUT seconds] [LIBRARIES target...]
#                   [SOURCES file...] [INTERFACE_SOURCES file...])
#
# FOLDER_tests runs all sources against the static libraries. FOLDER_interface_tests runs INTERFACE_SOURCES, which
# use the public headers only, against the DLL itself. Each is one test for CTest, since starting a process is
# what costs under Wine. The native build has FOLDER_tests too, on the simulated system, unless WINDOWS_ONLY is given.
function(zantlog_add_tests folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS_ONLY" "TIMEOUT" "LIBRARIES;SOURCES;INTERFACE_SOURCES")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "tests of ${folder}: not understood: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT WIN32 AND arg_WINDOWS_ONLY)
        return()
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()

    # Compiled once for both executables: a call works with and without the import marks of the headers.
    set(interface_objects)
    if(arg_INTERFACE_SOURCES)
        add_library(${folder}_interface_objects OBJECT ${arg_INTERFACE_SOURCES})
        zantlog_compile_tests(${folder}_interface_objects)
        set(interface_objects $<TARGET_OBJECTS:${folder}_interface_objects>)
    endif()
    if(arg_SOURCES OR arg_INTERFACE_SOURCES)
        zantlog_test_executable(${folder}_tests ${folder} ${arg_TIMEOUT} ${arg_SOURCES} ${interface_objects})
        target_link_libraries(${folder}_tests PRIVATE ${arg_LIBRARIES})
    endif()
    if(arg_INTERFACE_SOURCES AND WIN32)
        zantlog_test_executable(${folder}_interface_tests ${folder} ${arg_TIMEOUT} ${interface_objects})
        target_link_libraries(${folder}_interface_tests PRIVATE zantlog_3 qzlis)
    endif()
endfunction()

# How the sources of a test target are compiled. GoogleTest's headers are most of what a test source costs, and
# optimising is most of the rest, so the one is precompiled and the other left out.
function(zantlog_compile_tests target)
    target_link_libraries(${target} PRIVATE zantlog_flags zantlog_test_support zantlog_gtest)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
    target_compile_definitions(${target} PRIVATE
        ZANTLOG_STATIC ZANTLIS_STATIC ZANTLOG_SOURCE_FOLDER="${PROJECT_SOURCE_DIR}")
    target_compile_options(${target} PRIVATE -O0)
    target_precompile_headers(${target} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
endfunction()

function(zantlog_test_executable name folder timeout)
    add_executable(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    zantlog_compile_tests(${name})
    target_link_libraries(${name} PRIVATE zantlog_test_main)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    set_tests_properties(${name} PROPERTIES LABELS ${folder} TIMEOUT ${timeout})
endfunction()
