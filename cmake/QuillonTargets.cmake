# How a library, a test, a benchmark and a fuzzer of this project are declared. The link lists given
# here are the architecture: a library reaches only what it names.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

add_library(quillon_options INTERFACE)
target_include_directories(quillon_options INTERFACE
    "${PROJECT_SOURCE_DIR}/src" "${CMAKE_BINARY_DIR}/generated")
target_compile_definitions(quillon_options INTERFACE
    QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(quillon_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${QUILLON_WERROR}>:-Werror>)
if(QUILLON_SANITIZE)
    # vptr needs type information that Qt's packages leave out
    set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=undefined)
    target_compile_options(quillon_options INTERFACE ${sanitizers} -fsanitize=fuzzer-no-link)
    target_link_options(quillon_options INTERFACE ${sanitizers})
endif()

# quillon_library(NAME SOURCES file... LINK library...)
function(quillon_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE quillon_options)
endfunction()

# quillon_program(NAME SOURCES file... LINK library...): a program in the program folder, which people
# start through a link in the path once it is installed
function(quillon_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LINK} quillon_options)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${QUILLON_PROGRAM_FOLDER}")
    install(TARGETS ${name} DESTINATION "${QUILLON_INSTALLED_FOLDER}")
    quillon_install_link("${CMAKE_INSTALL_BINDIR}/${name}" "${QUILLON_INSTALLED_FOLDER}/${name}")
endfunction()

# What tests and benchmarks have in common: the program NAME.cpp, which knows the folders of the sources
# and of the built program. FRAMEWORK is the library that runs it.
function(quillon_harness name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FRAMEWORK" "LINK;SOURCES;NEEDS;DEFINE")
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LINK} ${arg_FRAMEWORK} quillon_options)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE
        QUILLON_SOURCE_FOLDER="${PROJECT_SOURCE_DIR}"
        QUILLON_PROGRAM_FOLDER="${QUILLON_PROGRAM_FOLDER}"
        ${arg_DEFINE})
    if(arg_NEEDS)
        add_dependencies(${name} ${arg_NEEDS})
    endif()
endfunction()

# quillon_test(NAME LINK library... [SOURCES file...] [NEEDS target...] [DEFINE definition...]):
# the test program NAME.cpp. Each test has a home folder of its own, so that no test sees another's
# settings or those of whoever runs it.
function(quillon_test name)
    quillon_harness(${name} FRAMEWORK Qt6::Test ${ARGN})
    set(home "${CMAKE_CURRENT_BINARY_DIR}/home-${name}")
    file(MAKE_DIRECTORY "${home}")
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_DATA_HOME=${home}/data;XDG_CACHE_HOME=${home}/cache;XDG_RUNTIME_DIR=${home};LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
endfunction()

# quillon_benchmark(NAME LINK library... [NEEDS target...] [DEFINE definition...]): the benchmark NAME.cpp
function(quillon_benchmark name)
    quillon_harness(${name} FRAMEWORK benchmark::benchmark ${ARGN})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bench")
endfunction()

# quillon_fuzzer(NAME LINK library...): the fuzzer NAME.cpp; given a file it replays that file
function(quillon_fuzzer name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK")
    add_executable(${name} ${name}.cpp)
    target_link_libraries(${name} PRIVATE ${arg_LINK} quillon_options)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/fuzz")
endfunction()
