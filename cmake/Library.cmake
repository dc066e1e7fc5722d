# Links the tables of the library, resources/library/<kind>.csv, into a target as read-only bytes: the symbols
# zt_library_<kind> and zt_library_<kind>_end.
function(zt_embed_library target)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/library_data.S)
    set(content "    .section .rodata\n")
    set(tables)
    foreach(kind IN LISTS ARGN)
        set(table ${CMAKE_SOURCE_DIR}/resources/library/${kind}.csv)
        set(symbol zt_library_${kind})
        string(APPEND content "    .balign 8\n    .global ${symbol}\n    .global ${symbol}_end\n"
            "${symbol}:\n    .incbin \"${table}\"\n${symbol}_end:\n")
        list(APPEND tables ${table})
    endforeach()
    string(APPEND content "    .section .note.GNU-stack,\"\",@progbits\n")
    file(CONFIGURE OUTPUT ${source} CONTENT "${content}" @ONLY)
    set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${tables}")
    target_sources(${target} PRIVATE ${source})
endfunction()
