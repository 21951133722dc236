# One interface target carries what every piece of the program is compiled with.
add_library(quaverly_flags INTERFACE)
target_compile_options(quaverly_flags INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(quaverly_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_STRICT_ITERATORS
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400
  $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS QT_FORCE_ASSERTS>)
target_include_directories(quaverly_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)

# quaverly_library(name SOURCES file... USES library...)
# A folder's library. USES is the whole list of what its files may include.
function(quaverly_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC quaverly_flags ${ARG_USES})
endfunction()

# quaverly_test(name SOURCES file... USES library...)
# One test program of a subsystem, run on Qt's offscreen platform.
function(quaverly_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_USES} qv_test_support GTest::gtest)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 240
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
