# One static library per room. Every target goes through these functions, so that warnings, sanitizers and
# the direction of links are the same everywhere.

include(cmake/Precompiled.cmake)

add_library(kzq_flags INTERFACE)
target_compile_options(kzq_flags INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough -fstack-protector-strong)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(kzq_flags INTERFACE -Wno-restrict)  # false alarms on std::string in optimised builds
endif()
target_include_directories(kzq_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(kzq_flags INTERFACE QT_NO_KEYWORDS)  # our classes have members called slots
if(KZQ_SANITIZE)
    target_compile_options(kzq_flags INTERFACE -fsanitize=${KZQ_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kzq_flags INTERFACE -fsanitize=${KZQ_SANITIZE})
endif()
if(KZQ_FUZZ)
    target_compile_options(kzq_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_link_options(kzq_flags INTERFACE -fsanitize=address,undefined)
endif()

# kzq_room(NAME sources... [LINKS libraries...] [PRIVATE_LINKS libraries...])
function(kzq_room name)
    cmake_parse_arguments(ROOM "" "" "LINKS;PRIVATE_LINKS" ${ARGN})
    add_library(${name} STATIC ${ROOM_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC kzq_flags ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS})
    kzq_precompile(${name})
endfunction()

# kzq_widgets_room(NAME sources... [LINKS libraries...] [PRIVATE_LINKS libraries...])
# A room with widgets: moc and uic run by themselves, the *.ui files live in resources/.
function(kzq_widgets_room name)
    kzq_room(${name} ${ARGN})
    kzq_widgets(${name})
    target_link_libraries(${name} PUBLIC Qt6::Core Qt6::Gui Qt6::Widgets)
endfunction()

function(kzq_widgets name)
    set_target_properties(${name} PROPERTIES
        AUTOMOC ON AUTOUIC ON AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/resources)
    # what uic writes is nobody's style
    target_include_directories(${name} SYSTEM PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/include)
endfunction()

# kzq_program(NAME sources... [LINKS libraries...])
function(kzq_program name)
    cmake_parse_arguments(PROGRAM "" "" "LINKS" ${ARGN})
    add_executable(${name} ${PROGRAM_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE kzq_flags ${PROGRAM_LINKS})
    kzq_precompile(${name})
endfunction()

# kzq_test(NAME sources... [LINKS libraries...] [WRAPPER program...] [LABELS labels...])
# One test program per library; ctest sees one test per program, GoogleTest's own output names the cases.
function(kzq_test name)
    cmake_parse_arguments(TEST "" "" "LINKS;WRAPPER;LABELS" ${ARGN})
    add_executable(${name} ${TEST_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE kzq_flags ${TEST_LINKS} GTest::gmock_main)
    kzq_precompile(${name})
    add_test(NAME ${name} COMMAND ${TEST_WRAPPER} $<TARGET_FILE:${name}> --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES LABELS "${TEST_LABELS}"
        ENVIRONMENT "ASAN_OPTIONS=verify_asan_link_order=0;TSAN_OPTIONS=halt_on_error=1")
endfunction()

# kzq_widgets_test(NAME sources... [LINKS libraries...] [LABELS labels...])
# A test program with an application object on the offscreen platform; its main is shared.
function(kzq_widgets_test name)
    kzq_test(${name} ${PROJECT_SOURCE_DIR}/tests/ui/widgets_main.cpp ${ARGN})
    kzq_widgets(${name})
    target_link_libraries(${name} PRIVATE Qt6::Widgets Qt6::Test)
endfunction()

# add_rooms(FOLDER...): of the folders given, those that are there
macro(add_rooms)
    foreach(room ${ARGN})
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${room}/CMakeLists.txt)
            add_subdirectory(${room})
        endif()
    endforeach()
endmacro()
