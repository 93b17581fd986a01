# Writes a line NAME(member) for every data member of a struct, so that its table of names cannot lag behind it.
# cmake -DHEADER=file.h -DSTRUCT=Name -DOUTPUT=file.inc -P MemberNames.cmake
#
# The struct is read as the laboratory writes its structs of shared variables: data members alone, each declaration
# ended by ';', several of one type with commas between them, start values behind '=' or in braces.

file(READ ${HEADER} text)
string(REGEX REPLACE "//[^\n]*" "" text "${text}")
string(FIND "${text}" "struct ${STRUCT} " start)
if(start EQUAL -1)
    message(FATAL_ERROR "${HEADER}: no struct ${STRUCT}")
endif()
string(SUBSTRING "${text}" ${start} -1 text)
string(FIND "${text}" "\n};" end)
string(SUBSTRING "${text}" 0 ${end} text)
string(FIND "${text}" "{" start)
math(EXPR start "${start} + 1")
string(SUBSTRING "${text}" ${start} -1 text)

# start values in braces and arguments of templates hold commas: innermost first
foreach(pair "{[^{}]*}" "<[^<>]*>")
    set(before "")
    while(NOT before STREQUAL text)
        set(before "${text}")
        string(REGEX REPLACE "${pair}" "" text "${text}")
    endwhile()
endforeach()
string(REGEX REPLACE "=[^,;]*" "" text "${text}")
string(REGEX REPLACE "[ \n]+" " " text "${text}")

set(lines "")
foreach(declaration IN LISTS text)
    if(declaration MATCHES "[^ ]+ ([A-Za-z0-9_]+( ?, ?[A-Za-z0-9_]+)*) ?$")
        string(REGEX MATCHALL "[A-Za-z0-9_]+" members "${CMAKE_MATCH_1}")
        foreach(member IN LISTS members)
            string(APPEND lines "NAME(${member})\n")
        endforeach()
    endif()
endforeach()
file(WRITE ${OUTPUT} "${lines}")
