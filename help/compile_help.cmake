# Compiles the manual. Run by cmake -P with
#   CHMCMD   the compiler
#   PAGES    folder with the pages and pictures
#   PROJECT  the project file and the lists that it names
#   WORK     folder to work in
#   RESULT   the compiled file

file(REMOVE_RECURSE ${WORK})
file(REMOVE ${RESULT})
file(COPY ${PAGES}/ ${PROJECT} DESTINATION ${WORK})
execute_process(COMMAND ${CHMCMD} brovin.hhp WORKING_DIRECTORY ${WORK}
    RESULT_VARIABLE status OUTPUT_VARIABLE said ERROR_VARIABLE said)

# The status alone proves nothing: without its project file the compiler says 0 and makes nothing, and on a missing
# page it leaves an empty file behind. Nor does it mind what it cannot find in a link.
set(size 0)
if(EXISTS ${WORK}/brovin.chm)
    file(SIZE ${WORK}/brovin.chm size)
endif()
file(GLOB pictures ${PAGES}/pictures/*)
set(least 0)
foreach(picture IN LISTS pictures)
    file(SIZE ${picture} bytes)
    math(EXPR least "${least} + ${bytes} / 2") # pictures are compressed already and hardly get smaller
endforeach()
if(NOT status EQUAL 0 OR size LESS_EQUAL least)
    message(FATAL_ERROR "${CHMCMD} has not compiled the manual: status ${status}, ${size} bytes, of which more than "
        "${least} were expected. It said:\n${said}")
endif()
file(RENAME ${WORK}/brovin.chm ${RESULT})
