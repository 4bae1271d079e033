# How our own code is compiled and linked: link zantlog_flags PRIVATE.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_C_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

add_library(zantlog_flags INTERFACE)
target_compile_options(zantlog_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)

if(WIN32)
    # The runtime goes into each file, so that only Windows' own DLLs are needed beside it. Applies to C too.
    add_link_options(-static)
    # No Windows older than 7 is meant, and none of the rarely used headers.
    target_compile_definitions(zantlog_flags INTERFACE _WIN32_WINNT=0x0601 WIN32_LEAN_AND_MEAN NOMINMAX)
else()
    # wchar_t has 16 bits on Windows; texts of the interface are made of it.
    add_compile_options(-fshort-wchar)
endif()
