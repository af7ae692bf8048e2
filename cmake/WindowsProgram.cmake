# What a program file carries on Windows: its icon, its version and a manifest.
find_program(TARVO_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
find_program(TARVO_PYTHON python3 REQUIRED)

set(TARVO_WINDOWS_ICON ${CMAKE_BINARY_DIR}/resources/program.ico)
file(GLOB icons CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/desktop/resources/icon/*.png)
add_custom_command(
  OUTPUT ${TARVO_WINDOWS_ICON}
  COMMAND ${TARVO_PYTHON} ${PROJECT_SOURCE_DIR}/tools/windows/icon ${TARVO_WINDOWS_ICON} ${icons}
  DEPENDS ${icons} ${PROJECT_SOURCE_DIR}/tools/windows/icon
  VERBATIM
)
add_custom_target(windows_icon DEPENDS ${TARVO_WINDOWS_ICON})

# `description` is what the Explorer shows of the program.
function(tarvo_windows_program target description)
  set(templates ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(folder ${CMAKE_BINARY_DIR}/resources/${target})
  set(manifest ${folder}/program.manifest)
  configure_file(${templates}/program.manifest.in ${manifest} @ONLY)
  configure_file(${templates}/program.rc.in ${folder}/program.rc @ONLY)
  target_sources(${target} PRIVATE ${folder}/program.rc)
  set_source_files_properties(${folder}/program.rc PROPERTIES
                              OBJECT_DEPENDS "${TARVO_WINDOWS_ICON};${manifest}")
  add_dependencies(${target} windows_icon)
endfunction()
