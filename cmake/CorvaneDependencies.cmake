# The libraries the project calls, found once, as imported targets.

find_package(Threads REQUIRED)
find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)
find_package(CURL REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(HTTPLIB REQUIRED IMPORTED_TARGET cpp-httplib)

find_path(B64_INCLUDE_DIR b64/cencode.h REQUIRED)
find_library(B64_LIBRARY b64 REQUIRED)
add_library(b64::b64 UNKNOWN IMPORTED)
set_target_properties(b64::b64 PROPERTIES IMPORTED_LOCATION "${B64_LIBRARY}"
                                          INTERFACE_INCLUDE_DIRECTORIES "${B64_INCLUDE_DIR}")

if(CORVANE_BUILD_WINDOW)
  find_package(Qt6 REQUIRED COMPONENTS Widgets Svg LinguistTools)
  if(CORVANE_BUILD_TESTS)
    find_package(Qt6 REQUIRED COMPONENTS Test)
  endif()
endif()
if(CORVANE_BUILD_TESTS)
  find_package(GTest REQUIRED)
endif()
if(CORVANE_BUILD_BENCHMARKS)
  find_package(benchmark REQUIRED)
endif()
