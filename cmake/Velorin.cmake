# What all targets share: warnings, sanitizers, and the functions that declare libraries and programs.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

if(VELORIN_SANITIZE)
    add_compile_options(-fsanitize=${VELORIN_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VELORIN_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # With sanitizers, GCC reports uninitialised reads in templates of the standard library that are not there.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()

if(VELORIN_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
endif()

# Counters of functions in anonymous namespaces are told apart by the name of the compiled file, without its folder. Unity
# files of all libraries have the same name, as have sources named main.cpp, so each target gives a name of its own.
function(velorin_name_counters target)
    if(VELORIN_COVERAGE)
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -main-file-name -Xclang ${target}.cpp")
    endif()
endfunction()

# velorin_library(name SOURCES... LINK libs...): a static library of one folder. It can include its own folder
# and those that it links, so an include that runs the wrong way does not compile.
function(velorin_library name)
    cmake_parse_arguments(ARG "QT;GUI" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON) # modules link them too
    velorin_warnings(${name})
    velorin_name_counters(${name})
    if(ARG_GUI)
        target_link_libraries(${name} PUBLIC Qt6::Gui)
        target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
    endif()
    if(ARG_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
        target_link_libraries(${name} PUBLIC Qt6::Widgets Qt6::Svg)
        target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
    endif()
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/include)
    # The headers of a folder are reached by its path below src/ or tests/, as "model/Cell.h" or
    # "host/disk/TempFile.h", through a link of its own. A folder that is not linked cannot be included,
    # also if it is a neighbour below the same folder.
    string(REGEX REPLACE "^${CMAKE_SOURCE_DIR}/[^/]+/" "" folder ${CMAKE_CURRENT_SOURCE_DIR})
    set(link ${CMAKE_CURRENT_BINARY_DIR}/include/${folder})
    get_filename_component(above ${link} DIRECTORY)
    file(MAKE_DIRECTORY ${above})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${link} SYMBOLIC)
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
    if(folder IN_LIST VELORIN_MUTATIONS)
        # Optimising would take longer than it saves. An index outside a container ends the program.
        target_compile_options(${name} PRIVATE -O0 -UNDEBUG -D_GLIBCXX_ASSERTIONS -w -Werror=vla -fmax-errors=0)
        target_link_libraries(${name} PUBLIC velorin_mutations)
    endif()
endfunction()

function(velorin_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic $<$<BOOL:${VELORIN_WERROR}>:-Werror>)
endfunction()

# velorin_program(name SOURCES... LINK libs...): a program, built into bin/.
function(velorin_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    velorin_warnings(${name})
    velorin_name_counters(${name})
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
endfunction()

# velorin_module(name SOURCES... LINK libs...): a module that programs load at run time, built into bin/.
function(velorin_module name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} MODULE ${ARG_SOURCES})
    velorin_warnings(${name})
    velorin_name_counters(${name})
    set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
endfunction()

# velorin_finds_modules(program): the program finds the modules beside it, or where they are installed.
function(velorin_finds_modules program)
    # The same path in both places: otherwise the shorter one would be filled up with empty folders, which are searched.
    set_target_properties(${program} PROPERTIES
        BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "\$ORIGIN;\$ORIGIN/../lib/velorin/modules")
    add_dependencies(${program} velorin-card velorin-picture velorin-synth)
endfunction()

# velorin_loads_built_modules(test): a test or a benchmark finds the modules in the folder of the programs.
function(velorin_loads_built_modules test)
    add_dependencies(${test} velorin-card velorin-picture velorin-synth)
    set_target_properties(${test} PROPERTIES BUILD_RPATH ${CMAKE_BINARY_DIR}/bin)
endfunction()
