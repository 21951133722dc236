# One interface target carries what every piece of the program is compiled with.
add_library(quaverly_flags INTERFACE)
target_compile_options(quaverly_flags INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(quaverly_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_STRICT_ITERATORS
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400
  $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS QT_FORCE_ASSERTS>)
target_include_directories(quaverly_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)

# What nearly every file includes is compiled once for logic, once for screens and once for tests: a file
# then takes a third of the time. Nothing may lean on it: every file includes what it names, and clang-tidy,
# which works without, says when one does not.
option(QUAVERLY_PCH "Compile the common headers once" OFF)
function(quaverly_headers name)
  cmake_parse_arguments(ARG "" "" "HEADERS;USES" ${ARGN})
  if(QUAVERLY_PCH)
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE quaverly_flags ${ARG_USES})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
  endif()
endfunction()
set(common_headers <QDateTime> <QHash> <QList> <QMap> <QObject> <QString> <QStringList> <QVariant>
  <algorithm> <functional> <map> <memory> <optional> <vector>)
set(screen_headers ${common_headers} <QApplication> <QComboBox> <QDialog> <QLabel> <QLineEdit>
  <QMainWindow> <QMenu> <QPushButton>)
quaverly_headers(quaverly_logic_headers USES Qt6::Core HEADERS ${common_headers})
quaverly_headers(quaverly_screen_headers USES Qt6::Widgets HEADERS ${screen_headers})
quaverly_headers(quaverly_test_headers USES Qt6::Widgets GTest::gtest
  HEADERS ${screen_headers} <gtest/gtest.h>)

function(quaverly_reuse_headers name headers)
  if(QUAVERLY_PCH)
    target_precompile_headers(${name} REUSE_FROM ${headers})
  endif()
endfunction()

# quaverly_library(name SOURCES file... USES library...)
# A folder's library. USES is the whole list of what its files may include.
function(quaverly_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC quaverly_flags ${ARG_USES})
  if(name MATCHES "(_screens|qv_main)$")
    quaverly_reuse_headers(${name} quaverly_screen_headers)
  else()
    quaverly_reuse_headers(${name} quaverly_logic_headers)
  endif()
endfunction()

# quaverly_test(name SOURCES file... USES library...)
# One test program of a subsystem, run on Qt's offscreen platform.
function(quaverly_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_USES} qv_test_support GTest::gtest)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  quaverly_reuse_headers(${name} quaverly_test_headers)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 240
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
