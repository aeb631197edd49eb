# The one place for compiler switches: every target of ours links quarnel_flags privately, so a
# program that only uses the libraries never inherits them.
add_library(quarnel_flags INTERFACE)

# Results must be the same on every machine: no fused multiply-add, no fast-math.
target_compile_options(quarnel_flags INTERFACE -ffp-contract=off -fno-fast-math)
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86|x86_64|AMD64)$")
  # The old floating-point unit computes in 80 bits and rounds when it likes to.
  target_compile_options(quarnel_flags INTERFACE -msse2 -mfpmath=sse)
endif()
target_compile_options(
  quarnel_flags
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wnon-virtual-dtor
            -Wold-style-cast
            -Woverloaded-virtual
            -Wimplicit-fallthrough
            -Wundef)
if(QUARNEL_DEVELOPER)
  target_compile_options(quarnel_flags INTERFACE -Werror)
endif()
target_compile_definitions(
  quarnel_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
                          QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees overlaps in std::string that are not there (GCC bug 105651).
  target_compile_options(quarnel_flags INTERFACE -Wno-restrict)
endif()
