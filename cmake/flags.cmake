# SPDX-License-Identifier: MIT
# Compiler flags in one place: link torvane_flags to get them, or torvane_warnings for the warnings alone.
option(TORVANE_FUZZ "Build the fuzzers, with Clang" OFF)
option(TORVANE_COVERAGE "Count which lines are run, with Clang" OFF)
option(TORVANE_SHIPPED "Harden the program, and build the same bytes in any folder" OFF)

if(TORVANE_SHIPPED)
  # Debian's hardening flags, spelled out so that the environment can't change them. Position independent code and
  # read-only relocations are defaults of Debian's compiler.
  add_compile_options(-fstack-protector-strong -Wformat -Werror=format-security -D_FORTIFY_SOURCE=2 -Wdate-time)
  add_compile_options(-ffile-prefix-map=${CMAKE_BINARY_DIR}=build -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
  add_link_options(-Wl,-z,relro -Wl,-z,now)
  # A program has only those functions of a library that it uses: the one without windows uses few.
  add_compile_options(-ffunction-sections -fdata-sections)
  add_link_options(-Wl,--gc-sections)
endif()

# The warnings, all of them errors. Whether a number has a sign is left alone: Clang's -Wconversion asks for it,
# GCC's does not, and every index of a standard container would need a cast.
add_library(torvane_warnings INTERFACE)
target_compile_options(torvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wconversion -Wno-sign-conversion -Wold-style-cast
  -Woverloaded-virtual -Wsuggest-override -Wmissing-declarations -Werror)

if(CMAKE_UNITY_BUILD)
  # Where sources are compiled together, each of them counts as a header of the others. What these two find in
  # earnest is found by builds without, and by ./lint.
  target_compile_options(torvane_warnings INTERFACE -Wno-subobject-linkage -Wno-shadow)
endif()

add_library(torvane_flags INTERFACE)
target_link_libraries(torvane_flags INTERFACE torvane_warnings)
if(TORVANE_SANITIZE)
  # What tests is not what is tested: targets with the property TORVANE_TEST_CODE are compiled with one sanitizer
  # and without optimisation, in a quarter of the time.
  set(is_test_code $<BOOL:$<TARGET_PROPERTY:TORVANE_TEST_CODE>>)
  target_compile_options(torvane_flags INTERFACE
    -fsanitize=address -fno-omit-frame-pointer
    $<${is_test_code}:-O0>
    $<$<NOT:${is_test_code}>:-fsanitize=undefined>
    $<$<NOT:${is_test_code}>:-fno-sanitize-recover=undefined>)
  target_link_options(torvane_flags INTERFACE -fsanitize=address,undefined)
endif()
# The linker of binutils that takes half the time; each of some twenty test programs has all modules in it.
find_program(TORVANE_GOLD ld.gold)
if(TORVANE_GOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_link_options(torvane_flags INTERFACE -fuse-ld=gold)
endif()
if(TORVANE_FUZZ)
  # The dictionaries hold what comparisons look for; without a trace of them a run takes two thirds of the time.
  target_compile_options(torvane_flags INTERFACE -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()
if(TORVANE_COVERAGE)
  target_compile_options(torvane_flags INTERFACE -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(torvane_flags INTERFACE -fprofile-instr-generate)
endif()
