# zantlog_add_message_table(NAME FILE): a DLL that holds nothing but the event messages of a .mc file.
string(REPLACE windres windmc ZANTLOG_MESSAGE_COMPILER ${CMAKE_RC_COMPILER})

function(zantlog_add_message_table name file)
    get_filename_component(source ${file} ABSOLUTE)
    get_filename_component(stem ${file} NAME_WE)
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/${stem}.rc)
    add_custom_command(
        OUTPUT ${resource}
        COMMAND ${ZANTLOG_MESSAGE_COMPILER} -h . -r . ${source}
        DEPENDS ${source}
        WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
        VERBATIM)
    add_library(${name} SHARED ${resource})
    set_target_properties(${name} PROPERTIES PREFIX "" LINKER_LANGUAGE C)
    set_property(SOURCE ${resource} APPEND PROPERTY COMPILE_OPTIONS -I${CMAKE_CURRENT_BINARY_DIR})
    # No code, so no runtime.
    target_link_options(${name} PRIVATE -nostdlib -Wl,--entry,0)
    set_target_properties(${name} PROPERTIES ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
endfunction()
