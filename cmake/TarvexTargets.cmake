# Settings that every target of the laboratory shares, and the two commands that make one.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

# Sums are compared at the level of arc seconds a century: no contraction, no reordering.  errno is not used.
add_compile_options(-Wall -Wextra -Wshadow -ffp-contract=off -fno-math-errno)

# The checks before a change lands refuse warnings; whoever builds with another compiler is not stopped by them.
option(TARVEX_WERROR "Warnings are errors" OFF)
if(TARVEX_WERROR)
    add_compile_options(-Werror)
endif()

option(TARVEX_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
if(TARVEX_SANITIZE)
    # The sanitizers make GCC 12 see uninitialised values inside <regex> and <functional> that are not there.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        -Wno-maybe-uninitialized)
    add_link_options(-fsanitize=address,undefined)
endif()

if(TARVEX_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -Wno-psabi)
    add_link_options(-fsanitize=address,undefined)
endif()

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
        CCACHE_NOHASHDIR=1 ${CCACHE})
endif()

# A library sees its own folder and those it is linked with, none else: every folder stands in an include directory of
# its own, and the directories follow the link lists.
set(TARVEX_INCLUDE_TREE ${CMAKE_BINARY_DIR}/include CACHE PATH "Where the include directories of the folders are made")
function(tarvex_include_directory name visibility folder)
    set(home ${TARVEX_INCLUDE_TREE}/${folder})
    file(MAKE_DIRECTORY ${home})
    if(NOT EXISTS ${home}/${folder})
        file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${home}/${folder} SYMBOLIC)
    endif()
    target_include_directories(${name} ${visibility} ${home})
endfunction()

# tarvex_library(NAME SOURCES... [LINK targets...]): the library of this folder.
function(tarvex_library name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    tarvex_include_directory(${name} PUBLIC ${folder})
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
endfunction()

# tarvex_member_names(LIBRARY HEADER STRUCT): the members of a struct as lines NAME(member), in a file that is named
# after them (struct RunState: run_state_names.inc) for the unit that enters them into the table of names.
function(tarvex_member_names name header struct)
    string(REGEX REPLACE "([a-z])([A-Z])" "\\1_\\2" file ${struct})
    string(TOLOWER ${file}_names.inc file)
    set(output ${CMAKE_CURRENT_BINARY_DIR}/${file})
    set(script ${CMAKE_SOURCE_DIR}/cmake/MemberNames.cmake)
    add_custom_command(OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -DHEADER=${CMAKE_CURRENT_SOURCE_DIR}/${header} -DSTRUCT=${struct} -DOUTPUT=${output} -P ${script}
        DEPENDS ${header} ${script} VERBATIM)
    target_sources(${name} PRIVATE ${output})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

# tarvex_tests(NAME SOURCES... [LINK targets...] [LABEL label]): one test program, its cases run in parallel by CTest.
function(tarvex_tests name)
    cmake_parse_arguments(ARG "" "LABEL" "LINK" ${ARGN})
    add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
    tarvex_include_directory(${name} PRIVATE tests)
    target_compile_definitions(${name} PRIVATE TARVEX_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest GTest::gtest_main)
    set(labels "")
    if(ARG_LABEL)
        set(labels LABELS ${ARG_LABEL})  # an empty one would swallow the next property
    endif()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 ${labels}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
