# zantlog_add_tests(FOLDER [NATIVE] [TIMEOUT seconds] [LIBRARIES target...]
#                   [SOURCES file...] [INTERFACE_SOURCES file...])
#
# FOLDER_tests runs all sources against the static libraries. FOLDER_interface_tests runs INTERFACE_SOURCES, which
# use the public headers only, against the DLL itself. Each is one test for CTest, since starting a process is
# what costs under Wine. NATIVE says that FOLDER_tests needs nothing of Windows: the native build has it too.
function(zantlog_add_tests folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "NATIVE" "TIMEOUT" "LIBRARIES;SOURCES;INTERFACE_SOURCES")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "tests of ${folder}: not understood: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT WIN32 AND NOT arg_NATIVE)
        return()
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()

    if(arg_SOURCES OR arg_INTERFACE_SOURCES)
        zantlog_test_executable(${folder}_tests ${folder} ${arg_TIMEOUT} ${arg_SOURCES} ${arg_INTERFACE_SOURCES})
        target_link_libraries(${folder}_tests PRIVATE ${arg_LIBRARIES})
    endif()
    if(arg_INTERFACE_SOURCES AND WIN32)
        zantlog_test_executable(${folder}_interface_tests ${folder} ${arg_TIMEOUT} ${arg_INTERFACE_SOURCES})
        target_link_libraries(${folder}_interface_tests PRIVATE zantlog_3 qzlis)
    endif()
endfunction()

function(zantlog_test_executable name folder timeout)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE zantlog_flags zantlog_test_main zantlog_test_support zantlog_gtest)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
    target_compile_definitions(${name} PRIVATE ZANTLOG_SOURCE_FOLDER="${PROJECT_SOURCE_DIR}")
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    set_tests_properties(${name} PROPERTIES LABELS ${folder} TIMEOUT ${timeout})
endfunction()
