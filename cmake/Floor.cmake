# A floor of the house: a library under src/ that sees its own headers and those of the floors that it names, nothing else.
#
#   zt_floor(zt_db SOURCES ... BELOW velda_lib LIBRARIES SQLite::SQLite3)
#
# Headers are included with the floor's name in front ("zt_db/doc/doc.h"). Each floor has an include folder of its own that
# holds just a link to its sources, so that a header of a floor that was not named cannot be found.
function(zt_floor name)
    cmake_parse_arguments(FLOOR "" "" "SOURCES;BELOW;LIBRARIES" ${ARGN})
    add_library(${name} STATIC ${FLOOR_SOURCES})
    set(include_folder ${CMAKE_BINARY_DIR}/floors/${name})
    file(MAKE_DIRECTORY ${include_folder})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${include_folder}/${name} SYMBOLIC)
    target_include_directories(${name} PUBLIC ${include_folder})
    target_link_libraries(${name} PUBLIC ${FLOOR_BELOW} PRIVATE ${FLOOR_LIBRARIES} zt_build_settings)
endfunction()
