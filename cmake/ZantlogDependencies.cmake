# What others wrote, as targets: zantlog_icu, zantlog_gtest, zantlog_cli11, zantlog_fmt, zantlog_json.
# scripts/setup.sh provides all of it and writes where it is into build/dependencies.cmake.
set(dependencies ${PROJECT_SOURCE_DIR}/build/dependencies.cmake)
include(${dependencies} OPTIONAL RESULT_VARIABLE found)
if(NOT found)
    message(FATAL_ERROR "${dependencies} is missing: run scripts/setup.sh first")
endif()

# ICU's common library.
add_library(zantlog_icu INTERFACE)
if(WIN32)
    target_include_directories(zantlog_icu SYSTEM INTERFACE ${ZANTLOG_WINDOWS_ICU}/include)
    target_compile_definitions(zantlog_icu INTERFACE U_STATIC_IMPLEMENTATION)
    target_link_libraries(zantlog_icu INTERFACE ${ZANTLOG_WINDOWS_ICU}/lib/libzantlog_icu.a)
else()
    find_package(ICU REQUIRED COMPONENTS uc)
    target_link_libraries(zantlog_icu INTERFACE ICU::uc)
endif()

# GoogleTest and GoogleMock.
add_library(zantlog_gtest INTERFACE)
if(WIN32)
    set(googletest ${ZANTLOG_WINDOWS_GOOGLETEST})
else()
    set(googletest ${ZANTLOG_NATIVE_GOOGLETEST})
    find_package(Threads REQUIRED)
    target_link_libraries(zantlog_gtest INTERFACE Threads::Threads)
endif()
target_include_directories(zantlog_gtest SYSTEM INTERFACE ${googletest}/include)
target_link_libraries(zantlog_gtest INTERFACE ${googletest}/lib/libgmock.a ${googletest}/lib/libgtest.a)

# Header-only libraries of the machine. A cross-compiler must not see all of /usr/include, so each is linked
# into a folder of its own.
function(zantlog_header_only_library target folder)
    if(NOT EXISTS /usr/include/${folder})
        message(FATAL_ERROR "/usr/include/${folder} is missing: run scripts/setup.sh first")
    endif()
    set(headers ${CMAKE_BINARY_DIR}/third_party/${folder})
    file(MAKE_DIRECTORY ${headers})
    file(CREATE_LINK /usr/include/${folder} ${headers}/${folder} SYMBOLIC)
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${headers})
endfunction()

zantlog_header_only_library(zantlog_cli11 CLI)
zantlog_header_only_library(zantlog_fmt fmt)
target_compile_definitions(zantlog_fmt INTERFACE FMT_HEADER_ONLY)
zantlog_header_only_library(zantlog_json nlohmann)
