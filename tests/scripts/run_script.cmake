# Runs one table script in an emptied folder; the test fails with the exit status of the script.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
# Scripts reach the sample models here.
file(CREATE_LINK ${CMAKE_CURRENT_LIST_DIR}/../../samples ${FOLDER}/samples SYMBOLIC)
execute_process(COMMAND ${ZTS} script ${SCRIPT} WORKING_DIRECTORY ${FOLDER} RESULT_VARIABLE status OUTPUT_VARIABLE output
                ERROR_VARIABLE output)
message("${output}")
if(NOT status EQUAL 0)
    message(FATAL_ERROR "exit status ${status}")
endif()
