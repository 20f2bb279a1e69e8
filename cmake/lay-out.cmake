# SPDX-License-Identifier: MIT
# The program's folder as it is started and shipped: the executable and its tree beside it. Laid out at
# every build; what the user may have changed in it stays (see src/home/LayOut.h).
add_executable(torvane_lay_out packaging/lay_out.cpp)
set_target_properties(torvane_lay_out PROPERTIES AUTOMOC OFF RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
target_link_libraries(torvane_lay_out PRIVATE torvane_modules)

set(TORVANE_FOLDER ${CMAKE_BINARY_DIR}/torvane)
add_custom_target(torvane_folder ALL
  COMMAND torvane_lay_out --version ${PROJECT_VERSION} ${TORVANE_FOLDER}
          ${CMAKE_SOURCE_DIR}/tree ${TORVANE_ART_TREE} ${TORVANE_DEMO_TREE}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:torvane> ${TORVANE_FOLDER}/torvane
  COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:torvane-tags> ${TORVANE_FOLDER}/torvane-tags
  DEPENDS torvane torvane-tags torvane_art_files torvane_demo
  COMMENT "Laying out the program's folder"
  VERBATIM)
