# The headers that most files of a kind read, compiled once for all targets of that kind. A file still
# includes what it uses: with VELMORA_PCH=OFF, as for clang-tidy, everything compiles as well.
option(VELMORA_PCH "Compile the headers of the toolkit and the test framework once" ON)

# A precompiled header fits only what is compiled with the same flags; so each is made by a target of
# its own of the same type, libraries or programs, which links what stands in it.
function(velmora_pch name type)
  cmake_parse_arguments(PARSE_ARGV 2 P "" "" "HEADERS;LIBS")
  if(NOT VELMORA_PCH)
    return()
  endif()
  if(type STREQUAL LIBRARY)
    add_library(${name} STATIC ${PROJECT_SOURCE_DIR}/cmake/pch.cpp)
  else()
    add_executable(${name} ${PROJECT_SOURCE_DIR}/cmake/pch.cpp)
    set_target_properties(${name} PROPERTIES
      RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} ENABLE_EXPORTS OFF)
  endif()
  target_link_libraries(${name} PRIVATE ${P_LIBS} velmora_flags)
  target_precompile_headers(${name} PRIVATE ${P_HEADERS})
  # Lets compiler caches see through a precompiled header.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

# Has a target use one of them.
function(velmora_use_pch target name)
  if(VELMORA_PCH)
    target_precompile_headers(${target} REUSE_FROM ${name})
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
endfunction()

set(standardheaders <algorithm> <array> <cmath> <cstdint> <functional> <memory> <optional> <span>
  <string> <string_view> <vector>)
set(guiheaders <QColor> <QFont> <QFontMetrics> <QFontMetricsF> <QImage> <QPainter> <QString>)
set(widgetheaders <QApplication> <QCheckBox> <QComboBox> <QDialog> <QGridLayout> <QGroupBox>
  <QHBoxLayout> <QKeyEvent> <QLabel> <QLineEdit> <QMdiArea> <QMdiSubWindow> <QMouseEvent>
  <QPushButton> <QRadioButton> <QScreen> <QTimer> <QVBoxLayout>)
set(testheaders <filesystem> <fstream> <gmock/gmock.h> <gtest/gtest.h> <random> <set>)

if(VELMORA_WINDOWS)
  velmora_pch(pch_paint LIBRARY HEADERS ${standardheaders} ${guiheaders} LIBS Qt6::Gui)
  velmora_pch(pch_windows LIBRARY HEADERS ${standardheaders} ${guiheaders} ${widgetheaders}
    LIBS Qt6::Widgets)
endif()
if(BUILD_TESTING)
  velmora_pch(pch_tests PROGRAM HEADERS ${standardheaders} ${testheaders} LIBS GTest::gmock)
  if(VELMORA_WINDOWS)
    velmora_pch(pch_guitests PROGRAM
      HEADERS ${standardheaders} ${guiheaders} ${widgetheaders} ${testheaders} <QAction> <QTest>
      LIBS Qt6::Widgets Qt6::Test GTest::gmock)
  endif()
endif()
