# SPDX-License-Identifier: MIT
# moc reads whatever a source includes, of Qt and of the standard library too, and needs none of it: no macro from
# there decides on a class of ours. Without those headers it gives the same in a fiftieth of the time.
get_target_property(TORVANE_MOC Qt6::moc LOCATION)
configure_file(cmake/moc.sh.in ${CMAKE_BINARY_DIR}/moc.sh @ONLY FILE_PERMISSIONS
               OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set_target_properties(Qt6::moc PROPERTIES IMPORTED_LOCATION ${CMAKE_BINARY_DIR}/moc.sh)
# No header that moc reads is generated, so it need not wait for libraries.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
# The target "autogen" runs it on everything.
set(CMAKE_GLOBAL_AUTOGEN_TARGET ON)
