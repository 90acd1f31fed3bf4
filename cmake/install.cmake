# What `cmake --install` puts where.
install(FILES data/cities.dat data/omni.ant data/dipole.ant data/panel.ant data/yagi3.ant data/yagi9.ant
  DESTINATION ${CMAKE_INSTALL_DATADIR}/velmora)
install(DIRECTORY data/icon DESTINATION ${CMAKE_INSTALL_DATADIR}/velmora FILES_MATCHING PATTERN *.ico
  PATTERN src EXCLUDE)
install(TARGETS velmor32 LIBRARY)
if(TARGET velmora_gis)
  install(TARGETS velmora_gis LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
if(VELMORA_WINDOWS)
  install(TARGETS velmora velmora-cli RUNTIME)
  install(FILES data/velmora.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES data/icons/velmora.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
