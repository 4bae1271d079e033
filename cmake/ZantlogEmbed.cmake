# zantlog_embed(TARGET NAME file...)
#
# Makes the files, one after the other, part of the target: as `const EmbeddedFile NAME` of
# tools/qzlogview/report/embedded_file.h. They are read again when they have changed.
set(ZANTLOG_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/embed_files.cmake)

function(zantlog_embed target name)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE files)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    # The command's own list separator, since it is one argument.
    list(JOIN files "|" joined)
    add_custom_command(
        OUTPUT ${source}
        COMMAND ${CMAKE_COMMAND} -DNAME=${name} -DFILES=${joined} -DOUTPUT=${source} -P ${ZANTLOG_EMBED_SCRIPT}
        DEPENDS ${files} ${ZANTLOG_EMBED_SCRIPT}
        VERBATIM)
    target_sources(${target} PRIVATE ${source})
endfunction()
