find_package(Threads REQUIRED)
find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui)
find_package(Boost 1.74 EXACT REQUIRED COMPONENTS stacktrace_backtrace)
find_package(PkgConfig REQUIRED)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET
  libavformat>=59 libavcodec>=59 libavfilter>=8 libavutil>=57 libswscale>=6 libswresample>=4)
pkg_check_modules(GLOG REQUIRED IMPORTED_TARGET libglog)
find_path(VALIJSON_INCLUDE_DIR valijson/adapters/qtjson_adapter.hpp REQUIRED)
find_path(RAPIDJSON_INCLUDE_DIR rapidjson/reader.h REQUIRED)
