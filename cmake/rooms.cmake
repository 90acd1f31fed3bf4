# A room's floor is one static library that sees only the headers of the rooms it names.
# Each target gets a view folder with a link to each of its own headers, and nothing else on its
# include path; libraries are linked so that what one sees is not handed on. So a wrong include does
# not compile. A name in USES must already be a target; so the order of the add_subdirectory lines is
# the order of the rooms, and a ring does not configure.

# velmora_library(name FOLDER path-below-src SOURCES ... [SUBFOLDERS ...] USES targets... [LIBS ...]
#                 [QT modules...])
function(velmora_library name)
  cmake_parse_arguments(PARSE_ARGV 1 L "" "FOLDER" "SOURCES;SUBFOLDERS;USES;LIBS;QT")
  velmora_check_uses(${name} "${L_USES}")
  velmora_view(${name} ${L_FOLDER} "${L_SUBFOLDERS}")
  list(TRANSFORM L_QT PREPEND Qt6::)
  add_library(${name} STATIC ${L_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_BINARY_DIR}/view/${name})
  target_link_libraries(${name} PRIVATE ${L_USES} ${L_QT} ${L_LIBS} velmora_flags)
  set_target_properties(${name} PROPERTIES VELMORA_SEES "${L_USES};${L_QT};${L_LIBS}")
  if(L_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
  if(name MATCHES "_paint$")
    velmora_use_pch(${name} pch_paint)
  elseif(name MATCHES "_windows$")
    velmora_use_pch(${name} pch_windows)
  endif()
endfunction()

# Links the headers of a folder, but not those of the floors above it, into the view of a target.
function(velmora_view name folder subfolders)
  set(view ${PROJECT_BINARY_DIR}/view/${name}/${folder})
  foreach(part IN LISTS subfolders ITEMS "")
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}
      ${CMAKE_CURRENT_SOURCE_DIR}/${part}/*.h)
    file(MAKE_DIRECTORY ${view}/${part})
    foreach(header IN LISTS headers)
      file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${view}/${header} SYMBOLIC)
    endforeach()
  endforeach()
endfunction()

function(velmora_check_uses name uses)
  foreach(used IN LISTS uses)
    if(NOT TARGET ${used})
      message(FATAL_ERROR "${name} uses ${used}, which does not lie below it")
    endif()
  endforeach()
endfunction()

# Lets a program that is no room (a test, a benchmark, a fuzz entry) see the named targets and all
# that those see.
function(velmora_see_all program uses)
  set(seen "")
  set(next ${uses})
  while(next)
    list(POP_FRONT next one)
    if(one IN_LIST seen)
      continue()
    endif()
    list(APPEND seen ${one})
    if(TARGET ${one})
      get_target_property(below ${one} VELMORA_SEES)
      if(below)
        list(APPEND next ${below})
      endif()
    endif()
  endwhile()
  target_link_libraries(${program} PRIVATE ${seen})
endfunction()

# velmora_test(name SOURCES ... USES ... [GUI] [SLOW]): one test program, one ctest entry a test case.
# GUI programs run offscreen with their own home and one QApplication.
function(velmora_test name)
  cmake_parse_arguments(PARSE_ARGV 1 T "GUI;SLOW" "" "SOURCES;USES")
  velmora_check_uses(${name} "${T_USES}")
  add_executable(${name} ${T_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  velmora_see_all(${name} "${T_USES}")
  target_link_libraries(${name} PRIVATE GTest::gmock velmora_flags)
  set(label unit)
  if(T_GUI)
    set(label gui)
    target_link_libraries(${name} PRIVATE test_guimain)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    velmora_use_pch(${name} pch_guitests)
  else()
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
    # The toolkit wants position-independent code of another kind than that of plain programs.
    get_target_property(linked ${name} LINK_LIBRARIES)
    if(NOT linked MATCHES "Qt6::")
      velmora_use_pch(${name} pch_tests)
    endif()
  endif()
  if(T_SLOW)
    set(label slow)
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    TEST_PREFIX "${name}." PROPERTIES LABELS ${label} TIMEOUT 300
    ENVIRONMENT "VELMORA_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()

# velmora_fuzz(name SOURCES ... USES ...): a reader of outside bytes under random input, as the program
# fuzz_<name> with its seeds in fuzz/seeds/<name>. With VELMORA_LIBFUZZER it is a libFuzzer program;
# otherwise a driver that replays the seeds and a fixed number of mutations of them, so that every
# test run gives each reader a short shake.
function(velmora_fuzz name)
  cmake_parse_arguments(PARSE_ARGV 1 F "" "" "SOURCES;USES")
  set(target fuzz_${name})
  velmora_check_uses(${target} "${F_USES}")
  add_executable(${target} ${F_SOURCES})
  velmora_see_all(${target} "${F_USES}")
  target_link_libraries(${target} PRIVATE velmora_flags)
  if(VELMORA_LIBFUZZER)
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
  else()
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/driver.cpp)
    add_test(NAME fuzz.${name} COMMAND ${target} ${PROJECT_SOURCE_DIR}/fuzz/seeds/${name})
    set_tests_properties(fuzz.${name} PROPERTIES LABELS unit TIMEOUT 120)
  endif()
endfunction()

# velmora_benchmark(name USES ... [MAIN]): the program <name>.cpp; MAIN takes the library's own main.
function(velmora_benchmark name)
  cmake_parse_arguments(PARSE_ARGV 1 B "MAIN" "" "SOURCES;USES")
  add_executable(${name} ${name}.cpp ${B_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  velmora_see_all(${name} "${B_USES}")
  target_link_libraries(${name} PRIVATE velmora_flags
    $<IF:$<BOOL:${B_MAIN}>,benchmark::benchmark_main,benchmark::benchmark>)
endfunction()
