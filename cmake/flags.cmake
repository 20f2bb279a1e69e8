# SPDX-License-Identifier: MIT
# Compiler flags in one place: link torvane_flags to get them.
add_library(torvane_flags INTERFACE)
target_compile_options(torvane_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
if(TORVANE_SANITIZE)
  target_compile_options(torvane_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                 -fno-omit-frame-pointer)
  target_link_options(torvane_flags INTERFACE -fsanitize=address,undefined)
endif()
