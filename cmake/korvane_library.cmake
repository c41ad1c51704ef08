# One folder is one static library, and what a library may include is what it links.
#
# A folder sees another only through build/include/<name>/, which holds a single link named like
# the folder to it: `#include "core/log.h"` is found when core is linked and is an error when it is not.

set(KORVANE_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Woverloaded-virtual -Werror)

add_compile_options("$<$<CONFIG:Release>:-O2;-fno-plt>" -fno-semantic-interposition -ffunction-sections)
add_link_options(-Wl,--gc-sections -Wl,--as-needed)
if(KORVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# korvane_settings(target): the warnings and definitions every target of ours is built with.
function(korvane_settings target)
  target_compile_options(${target} PRIVATE ${KORVANE_WARNINGS})
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                               QT_NO_FOREACH QT_NO_KEYWORDS
                                               KORVANE_VERSION="${PROJECT_VERSION}")
  if(NOT target STREQUAL korvane_pch)
    target_precompile_headers(${target} REUSE_FROM korvane_pch)
  endif()
endfunction()

# The one precompiled header: Qt's value types and the standard containers.
file(WRITE ${CMAKE_BINARY_DIR}/pch.cpp.in "")
file(COPY_FILE ${CMAKE_BINARY_DIR}/pch.cpp.in ${CMAKE_BINARY_DIR}/pch.cpp ONLY_IF_DIFFERENT)
function(korvane_pch)
  add_library(korvane_pch STATIC ${CMAKE_BINARY_DIR}/pch.cpp)
  target_link_libraries(korvane_pch PUBLIC Qt6::Core)
  korvane_settings(korvane_pch)
  target_precompile_headers(
    korvane_pch PRIVATE
    <QByteArray> <QDateTime> <QHash> <QList> <QString> <QStringList> <QStringView>
    <algorithm> <array> <chrono> <cmath> <cstdint> <functional> <memory> <optional> <span> <string>
    <string_view> <utility> <variant> <vector>)
endfunction()

# korvane_library(name SOURCES ... [USES lower folders...] [PRIVATE libraries only its bodies need...])
function(korvane_library name)
  if(NOT TARGET korvane_pch)
    korvane_pch()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES;PRIVATE")
  add_library(${name} STATIC ${arg_SOURCES})
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  set(door ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${door})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${door}/${folder} SYMBOLIC)
  target_include_directories(${name} PUBLIC ${door})
  target_link_libraries(${name} PUBLIC Qt6::Core ${arg_USES} PRIVATE ${arg_PRIVATE})
  korvane_settings(${name})
endfunction()
