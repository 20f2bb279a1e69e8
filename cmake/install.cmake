# SPDX-License-Identifier: MIT
# What an installed copy has, by Debian's rules for games: the programs in games/, its read-only tree below
# share/torvane, and its files for the desktop. Permissions of files are fixed, whatever those of the sources are.
set(shared share/torvane)
set(plain_file PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(script_file PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(desktop ${CMAKE_SOURCE_DIR}/packaging/desktop)
set(debian ${CMAKE_SOURCE_DIR}/packaging/debian)
set(prepared ${CMAKE_BINARY_DIR}/packaging)

install(TARGETS torvane torvane-tags RUNTIME DESTINATION games ${script_file})
# The same trees as for the portable folder. Of what the build makes only these files: one that an earlier build has
# made, or somebody has put there, is not shipped.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/tree/ DESTINATION ${shared}/tree FILE_${plain_file} PATTERN "*.sh" ${script_file})
# install_made(FOLDER FILE...): the files, which are relative to the folder.
function(install_made folder)
  foreach(file IN LISTS ARGN)
    cmake_path(GET file PARENT_PATH place)
    install(FILES ${folder}/${file} DESTINATION ${shared}/tree/${place} ${plain_file})
  endforeach()
endfunction()
install_made(${TORVANE_ART_TREE} ${TORVANE_ART_TREE_FILES})
install_made(${TORVANE_DEMO_TREE} ${TORVANE_DEMO_TREE_FILES})

# Its index, from which the program knows what to lay out without reading the tree: made from the installed files.
install(CODE "
  set(tree \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${shared}/tree)
  execute_process(COMMAND $<TARGET_FILE:torvane_lay_out> --version ${PROJECT_VERSION} \${tree} \${tree}
                  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)")

install(FILES ${desktop}/torvane.desktop ${desktop}/zz-torvane-open.desktop DESTINATION share/applications ${plain_file})
foreach(size 16 22 24 32 36 48 64 72 96 128 192 256 512)
  install(FILES ${TORVANE_ART_THEME}/${size}x${size}.png RENAME torvane.png ${plain_file}
          DESTINATION share/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${CMAKE_SOURCE_DIR}/art/svg/torvane.svg DESTINATION share/icons/hicolor/scalable/apps ${plain_file})
foreach(program torvane torvane-tags)
  install(FILES ${desktop}/${program}.bash RENAME ${program} ${plain_file} DESTINATION share/bash-completion/completions)
endforeach()

# The date of the newest entry, as 2026-11-22, for the manual page and the releases.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${debian}/changelog)
file(STRINGS ${debian}/changelog signature LIMIT_COUNT 1 REGEX "^ -- ")
if(NOT signature MATCHES ", ([0-9][0-9]) ([A-Z][a-z][a-z]) ([0-9][0-9][0-9][0-9]) ")
  message(FATAL_ERROR "The changelog has no date")
endif()
set(day ${CMAKE_MATCH_1})
set(year ${CMAKE_MATCH_3})
string(FIND "JanFebMarAprMayJunJulAugSepOctNovDec" ${CMAKE_MATCH_2} month)
math(EXPR month "${month} / 3 + 101")
string(SUBSTRING ${month} 1 2 month)
set(TORVANE_DATE ${year}-${month}-${day})
configure_file(${desktop}/torvane.metainfo.xml.in ${prepared}/org.example.torvane.metainfo.xml @ONLY)
foreach(program torvane torvane-tags)
  configure_file(${desktop}/${program}.6.in ${prepared}/${program}.6 @ONLY)
endforeach()
install(FILES ${prepared}/org.example.torvane.metainfo.xml DESTINATION share/metainfo ${plain_file})

# zipped(FILE OUTPUT FOLDER): installs FILE without a time or a name inside.
set(zipped_files)
function(zipped file output folder)
  add_custom_command(OUTPUT ${prepared}/${output}
    COMMAND gzip -9nc ${file} > ${prepared}/${output}
    DEPENDS ${file} VERBATIM)
  install(FILES ${prepared}/${output} DESTINATION ${folder} ${plain_file})
  set(zipped_files ${zipped_files} ${prepared}/${output} PARENT_SCOPE)
endfunction()
foreach(program torvane torvane-tags)
  zipped(${prepared}/${program}.6 ${program}.6.gz share/man/man6)
endforeach()
zipped(${debian}/changelog changelog.gz share/doc/torvane)
add_custom_target(torvane_zipped_files ALL DEPENDS ${zipped_files})
install(FILES ${debian}/copyright DESTINATION share/doc/torvane ${plain_file})
