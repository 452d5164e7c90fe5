# Every library the program links, found once.

find_package(Threads REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui DBus Widgets)
find_package(nlohmann_json 3.11 REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(SIMDJSON REQUIRED IMPORTED_TARGET simdjson)
pkg_check_modules(PNG REQUIRED IMPORTED_TARGET libpng)
pkg_check_modules(ZLIB REQUIRED IMPORTED_TARGET zlib)
pkg_check_modules(DEFLATE REQUIRED IMPORTED_TARGET libdeflate)
pkg_check_modules(WEBP REQUIRED IMPORTED_TARGET libwebp libwebpdemux)
pkg_check_modules(JPEG REQUIRED IMPORTED_TARGET libjpeg)

if(NOT KESTRIO_FUZZ)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Qml Quick)
  find_package(QCoro6 0.8 REQUIRED COMPONENTS Core)
  find_package(GTest REQUIRED)
  find_package(benchmark REQUIRED)
endif()
