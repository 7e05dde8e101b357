# Precompiled headers: they make the build three to five times quicker. Each set is compiled once and used by every
# target of its kind. They only save time: every file includes what it uses, and CI compiles once without them.
option(KZQ_PCH "precompiled headers; off shows a missing include" ON)

set(KZQ_STD_HEADERS
    <algorithm> <array> <atomic> <cerrno> <charconv> <chrono> <condition_variable> <cstdint> <cstring> <filesystem>
    <fstream> <functional> <map> <memory> <mutex> <optional> <set> <span> <sstream> <string> <string_view>
    <system_error> <thread> <utility> <vector>)
set(KZQ_CORE_HEADERS <QByteArray> <QCoreApplication> <QObject> <QPointer> <QString> <QTimer> <QUrl>)
set(KZQ_WIDGETS_HEADERS
    <QAbstractButton> <QAccessible> <QApplication> <QKeyEvent> <QLabel> <QMouseEvent> <QPainter> <QPixmap> <QWidget>
    <QWindow>)
set(KZQ_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h>)

# kzq_precompiled_set(SET LINKS libraries... HEADERS headers...)
function(kzq_precompiled_set set)
    cmake_parse_arguments(SET "" "" "LINKS;HEADERS" ${ARGN})
    set(empty ${CMAKE_BINARY_DIR}/precompiled/${set}.cpp)
    if(NOT EXISTS ${empty})
        file(WRITE ${empty} "")
    endif()
    add_library(precompiled_${set} OBJECT EXCLUDE_FROM_ALL ${empty})
    target_link_libraries(precompiled_${set} PRIVATE kzq_flags ${SET_LINKS})
    target_precompile_headers(precompiled_${set} PRIVATE ${SET_HEADERS})
endfunction()

# kzq_precompile(TARGET): gives a target the set that fits what it links, once all its links are known
function(kzq_precompile target)
    if(KZQ_PCH AND NOT KZQ_FUZZ)
        cmake_language(EVAL CODE
            "cmake_language(DEFER DIRECTORY [[${PROJECT_SOURCE_DIR}]] CALL kzq_precompile_now ${target})")
    endif()
endfunction()

function(kzq_precompile_now target)
    get_target_property(links ${target} LINK_LIBRARIES)
    kzq_all_links(links ${links})
    set(set std)
    if(Qt6::Widgets IN_LIST links)
        set(set widgets)
    elseif(Qt6::Core IN_LIST links)
        set(set core)
    endif()
    if(GTest::gmock_main IN_LIST links)
        set(set ${set}_test)
    endif()
    if(NOT TARGET precompiled_${set})
        if(set MATCHES "^widgets")
            set(headers ${KZQ_CORE_HEADERS} ${KZQ_WIDGETS_HEADERS})
            set(set_links Qt6::Core Qt6::Gui Qt6::Widgets)
        elseif(set MATCHES "^core")
            set(headers ${KZQ_CORE_HEADERS})
            set(set_links Qt6::Core)
        endif()
        if(set MATCHES "_test$")
            list(APPEND headers ${KZQ_TEST_HEADERS})
            list(APPEND set_links GTest::gmock_main)
        endif()
        kzq_precompiled_set(${set} LINKS ${set_links} HEADERS ${KZQ_STD_HEADERS} ${headers})
    endif()
    target_precompile_headers(${target} REUSE_FROM precompiled_${set})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -fpch-preprocess)  # for ccache
    endif()
endfunction()

# kzq_all_links(VARIABLE libraries...): these libraries and all that they link publicly
function(kzq_all_links variable)
    set(found "")
    set(open ${ARGN})
    while(open)
        list(POP_FRONT open link)
        if(link IN_LIST found OR NOT TARGET ${link})
            continue()
        endif()
        list(APPEND found ${link})
        get_target_property(further ${link} INTERFACE_LINK_LIBRARIES)
        if(further)
            list(APPEND open ${further})
        endif()
    endwhile()
    set(${variable} "${found}" PARENT_SCOPE)
endfunction()
