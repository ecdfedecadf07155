# One interface target holds what every target of the project shares: the language standard, the
# warnings (all of them errors for developers), the strict Qt settings and the sanitizers of the chosen preset.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

option(PLURIMO_DEVELOPER "Make warnings errors, and use ccache if it is there; the presets set it" OFF)
if(PLURIMO_DEVELOPER)
  find_program(CCACHE_PROGRAM ccache)
  if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
  endif()
endif()

set(PLURIMO_SANITIZE "" CACHE STRING "Sanitizers of this build, as the compiler's -fsanitize takes them")

add_library(plurimo_common INTERFACE)
target_compile_features(plurimo_common INTERFACE cxx_std_20)
target_compile_options(plurimo_common INTERFACE
  -Wall -Wextra -Wpedantic $<$<BOOL:${PLURIMO_DEVELOPER}>:-Werror> -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wsuggest-override)
# Programs lie at another address each time they start. Compilers do that by default; said aloud, it can be checked.
target_link_options(plurimo_common INTERFACE $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-fPIE$<SEMICOLON>-pie>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlaps in std::string's operator+ that cannot be (GCC bug 105651).
  target_compile_options(plurimo_common INTERFACE -Wno-restrict)
endif()
target_compile_definitions(plurimo_common INTERFACE
  _FILE_OFFSET_BITS=64
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER QT_NO_FOREACH
  QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# Targets with the property PLURIMO_IS_TEST are compiled without the checks for undefined behaviour. These checks are for
# the product, and in the long functions that the test library makes they take more than half of the compiler's time.
define_property(TARGET PROPERTY PLURIMO_IS_TEST BRIEF_DOCS "Whether the target is a test program")
if(PLURIMO_SANITIZE)
  string(REPLACE ",undefined" "" of_tests "${PLURIMO_SANITIZE}")
  string(REPLACE "," "$<COMMA>" of_tests "${of_tests}")
  string(REPLACE "," "$<COMMA>" of_product "${PLURIMO_SANITIZE}")
  target_compile_options(plurimo_common INTERFACE
    -fsanitize=$<IF:$<BOOL:$<TARGET_PROPERTY:PLURIMO_IS_TEST>>,${of_tests},${of_product}>
    -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(plurimo_common INTERFACE -fsanitize=${PLURIMO_SANITIZE})
endif()

set(PLURIMO_BLOCK_SIZE "" CACHE STRING "For tests alone: bytes of a block of the copy instead of the product's 1048576")
if(PLURIMO_BLOCK_SIZE)
  target_compile_definitions(plurimo_common INTERFACE PLURIMO_BLOCK_SIZE=${PLURIMO_BLOCK_SIZE})
endif()

# The version has one source, the CMake project; the code gets it from here.
target_compile_definitions(plurimo_common INTERFACE PLURIMO_VERSION="${PROJECT_VERSION}")
