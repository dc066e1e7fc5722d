# Compiles the language resource resources/language/<code>.po and links it into a target as read-only data.
find_program(ZT_MSGFMT msgfmt REQUIRED)

function(zt_embed_languages target)
    set(catalogues)
    foreach(code IN ITEMS en ko)
        set(source ${CMAKE_SOURCE_DIR}/resources/language/${code}.po)
        set(catalogue ${CMAKE_CURRENT_BINARY_DIR}/${code}.mo)
        add_custom_command(OUTPUT ${catalogue}
            COMMAND ${ZT_MSGFMT} --check --no-hash -o ${catalogue} ${source}
            DEPENDS ${source} COMMENT "Language resource ${code}" VERBATIM)
        list(APPEND catalogues ${catalogue})
        string(TOUPPER ${code} upper)
        set(ZT_LANGUAGE_${upper} ${catalogue})
    endforeach()
    configure_file(${CMAKE_SOURCE_DIR}/src/velda_lib/language_data.S.in ${CMAKE_CURRENT_BINARY_DIR}/language_data.S @ONLY)
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/language_data.S PROPERTIES OBJECT_DEPENDS "${catalogues}")
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/language_data.S)
endfunction()
