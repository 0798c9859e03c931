# How every target of Tolvar is built. A folder of src/ is one library target that links only what
# its layer may know; the link lines are the proof of the layering.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# moc 6.4 cannot parse the concepts of the C++20 standard library and has no need to: keep it from
# finding those headers. The compiler knows its own folders anyway.
list(FILTER CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES EXCLUDE REGEX "/c\\+\\+/")

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(tolvar_options INTERFACE)
target_compile_options(tolvar_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wimplicit-fallthrough -Werror)
target_compile_definitions(tolvar_options INTERFACE
    QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(tolvar_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(TOLVAR_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(tolvar_options INTERFACE ${sanitizers})
    target_link_options(tolvar_options INTERFACE ${sanitizers})
    # The tests are watched for addresses alone: what GoogleTest's macros become under the other
    # sanitizer takes half of the compiler's time.
    set(no_sanitizers_for_macros -fno-sanitize=undefined)
endif()

# What is compiled otherwise in a test than in the product; linked last, so that it has the last word.
add_library(tolvar_test_options INTERFACE)
target_compile_options(tolvar_test_options INTERFACE ${no_sanitizers_for_macros})

# tolvar_library(NAME LINK targets...): the sources of this folder as one static library.
function(tolvar_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PUBLIC tolvar_options ${ARG_LINK})
endfunction()

# The surroundings of what is drawn in a test: the same letters and the same scale everywhere.
set(TOLVAR_OFFSCREEN
    QT_QPA_PLATFORM=offscreen
    QT_SCALE_FACTOR=1
    FONTCONFIG_FILE=${PROJECT_SOURCE_DIR}/tests/Support/fonts.conf)

# tolvar_test(NAME SOURCES files... LINK targets...): a GoogleTest program that CTest runs whole.
# DESKTOP marks a test that wants a private X server and bus around it (scripts/desktop run).
# WIDGETS gives it an application with widgets, drawn off any screen with one typeface.
function(tolvar_test name)
    cmake_parse_arguments(ARG "DESKTOP;WIDGETS" "TIMEOUT" "SOURCES;LINK" ${ARGN})
    if(ARG_WIDGETS)
        list(APPEND ARG_SOURCES ${PROJECT_SOURCE_DIR}/tests/Support/WidgetTestMain.cpp)
        list(APPEND ARG_LINK Qt6::Widgets Qt6::Test)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_link_libraries(${name}
        PRIVATE tolvar_options tolvar_test_support ${ARG_LINK} tolvar_test_options)
    if(TOLVAR_PRECOMPILE)
        target_precompile_headers(${name} REUSE_FROM tolvar_test_headers)
    endif()
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    if(ARG_DESKTOP)
        add_test(NAME ${name}
            COMMAND ${PROJECT_SOURCE_DIR}/scripts/desktop with $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES LABELS desktop)
    else()
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES LABELS unit)
    endif()
    if(ARG_WIDGETS)
        set_tests_properties(${name} PROPERTIES ENVIRONMENT "${TOLVAR_OFFSCREEN}")
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()

# tolvar_python_test(NAME SCRIPT file LABEL unit|desktop [WM name] [TIMEOUT seconds]): a Python
# unittest script. With WM it runs in a private desktop of that window manager, by itself, and finds
# the program in TOLVAR.
function(tolvar_python_test name)
    cmake_parse_arguments(ARG "" "SCRIPT;LABEL;WM;TIMEOUT" "" ${ARGN})
    # Debian's own interpreter is the one that finds Debian's modules.
    set(command /usr/bin/python3 -B ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_SCRIPT})
    if(ARG_WM)
        list(PREPEND command ${PROJECT_SOURCE_DIR}/scripts/desktop with --wm ${ARG_WM})
    endif()
    add_test(NAME ${name} COMMAND ${command})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    set_tests_properties(${name} PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT TOLVAR=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/tolvar)
endfunction()
