# 32-bit Windows with Debian's mingw-w64, for the device's pointer size and record layouts; tests run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)
set(VANTOR_TRIPLE i686-w64-mingw32)
set(VANTOR_WIDTH x86)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
