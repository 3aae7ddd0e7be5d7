# What every target of the project shares: warnings are errors, and sanitizers hold for the whole build.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

if(VELORIN_SANITIZE)
    add_compile_options(-fsanitize=${VELORIN_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VELORIN_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # What the sanitizers add to the library's own templates is taken for uninitialised reads.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()

# velorin_library(name SOURCES... LINK libs...): a static library of one folder. It sees `src/` as include
# root and the folders that it links, so an include that runs the wrong way does not compile.
function(velorin_library name)
    cmake_parse_arguments(ARG "QT" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON) # modules link them too
    velorin_warnings(${name})
    if(ARG_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
        target_link_libraries(${name} PUBLIC Qt6::Widgets Qt6::Svg)
        target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
    endif()
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/include)
    # The headers of a folder are reached as "folder/Header.h" through a link of its own, so that a folder
    # which is not linked cannot be included.
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/include)
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/include/${folder} SYMBOLIC)
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
endfunction()

function(velorin_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror)
endfunction()

# velorin_program(name SOURCES... LINK libs...): a program, built into bin/.
function(velorin_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    velorin_warnings(${name})
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
endfunction()
