# zantlog_3.dll: all folders' libraries, whole, with the exports that zantlog_3.def lists, and its import
# libraries: libzantlog.dll.a by the linker, zantlog_3.lib for Microsoft's.
set(def ${PROJECT_SOURCE_DIR}/api/zantlog_3.def)
set(folders
    zantlog_api zantlog_writer zantlog_reader zantlog_config zantlog_propstore zantlog_format zantlog_base zantlog_os)

enable_language(RC)
add_library(zantlog_3 SHARED
    ${PROJECT_SOURCE_DIR}/api/dll_main_windows.cpp
    ${PROJECT_SOURCE_DIR}/api/version.rc
    ${def})
set_target_properties(zantlog_3 PROPERTIES
    PREFIX ""
    IMPORT_PREFIX "lib"
    ARCHIVE_OUTPUT_NAME zantlog
    LINK_DEPENDS ${def})
target_include_directories(zantlog_3 INTERFACE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(zantlog_3 PRIVATE zantlog_flags)
target_link_options(zantlog_3 PRIVATE -Wl,--gc-sections $<$<CONFIG:Release>:-s>)
foreach(library IN LISTS folders)
    target_link_libraries(zantlog_3 PRIVATE ${library})
    get_target_property(type ${library} TYPE)
    if(type STREQUAL STATIC_LIBRARY)
        # Without this the linker would take only what dll_main needs: nothing.
        set_property(TARGET zantlog_3 PROPERTY LINK_LIBRARY_OVERRIDE_${library} WHOLE_ARCHIVE)
    endif()
endforeach()

set(microsoft_import_library ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/zantlog_3.lib)
add_custom_command(
    OUTPUT ${microsoft_import_library}
    COMMAND ${CMAKE_DLLTOOL} -m i386:x86-64 -d ${def} -l ${microsoft_import_library}
    DEPENDS ${def}
    VERBATIM)
add_custom_target(zantlog_3_lib ALL DEPENDS ${microsoft_import_library})
