# SPDX-License-Identifier: MIT
# Read by CTest before it runs the tests. The sanitizer's guess at the layout of thread-local memory is wrong
# for some of this C library's blocks: its leak check then reads a wild address at the end of a good run.
set(ENV{ASAN_OPTIONS} "intercept_tls_get_addr=0:$ENV{ASAN_OPTIONS}")
# Qt's connection to the desktop's bus keeps a buffer to the end of the process, which is no leak of ours.
set(ENV{LSAN_OPTIONS} "suppressions=${CMAKE_CURRENT_LIST_DIR}/leaks.supp:print_suppressions=0:$ENV{LSAN_OPTIONS}")
