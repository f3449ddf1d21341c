# 64-bit Windows with Debian's mingw-w64; tests run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(VANTOR_TRIPLE x86_64-w64-mingw32)
set(VANTOR_WIDTH x64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
