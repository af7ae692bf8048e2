# Each folder under src/ is a level: a static library that sees the headers of the levels it names,
# and of no other, so that an include of a level above doesn't compile. Headers are included with
# their folder ("platform/Files.h"); for that each level has an include root of its own, which
# holds nothing but a link to the level's folder.
function(tarvo_level name)
  cmake_parse_arguments(level "" "" "SOURCES;LEVELS" ${ARGN})
  set(root ${CMAKE_BINARY_DIR}/levels/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
  add_library(tarvo_${name} STATIC ${level_SOURCES})
  target_include_directories(tarvo_${name} PUBLIC ${root})
  list(TRANSFORM level_LEVELS PREPEND tarvo_)
  target_link_libraries(tarvo_${name} PUBLIC tarvo_options ${level_LEVELS})
endfunction()
