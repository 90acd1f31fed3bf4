# Compiler flags of our own code. Arithmetic must not depend on the machine:
# no contraction into fused operations, no fast-math, no -march=native.
add_library(velmora_flags INTERFACE)
target_compile_options(velmora_flags INTERFACE
  -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<CXX_COMPILER_ID:GNU>:-Wdouble-promotion> # clang's form also flags what is written to be double
  -Wformat=2 -Wundef -Wnon-virtual-dtor -Woverloaded-virtual
  # GCC 12 is wrong about these in the inlined inserts of std::string and in vectors of lanes; which
  # files it says so of depends on the optimisation, so that most are told but are no errors.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  $<$<CXX_COMPILER_ID:GNU>:-Wno-error=stringop-overflow>
  $<$<CXX_COMPILER_ID:GNU>:-Wno-error=stringop-overread>
  $<$<CXX_COMPILER_ID:GNU>:-Wno-error=array-bounds>
  $<$<CXX_COMPILER_ID:GNU>:-Wno-error=maybe-uninitialized>
  # Branch-free loops combine conditions by "&" on purpose.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-bitwise-instead-of-logical>)
target_compile_definitions(velmora_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(VELMORA_WERROR)
  target_compile_options(velmora_flags INTERFACE -Werror)
endif()

# Sanitizers, coverage and library assertions must hold for every object that is linked.
if(VELMORA_SANITIZE)
  add_compile_options(-fsanitize=${VELMORA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=${VELMORA_SANITIZE})
endif()
if(VELMORA_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()
if(VELMORA_LIBFUZZER)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
