# What the build for another system takes from packages of this one: headers, and sources to be built along.
find_path(TUL_CLI11_HEADERS CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(TUL_JSON_HEADERS nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
# A folder of its own: the headers beside it are this system's.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
file(CREATE_LINK ${TUL_CLI11_HEADERS}/CLI ${PROJECT_BINARY_DIR}/headers/CLI SYMBOLIC)
file(CREATE_LINK ${TUL_JSON_HEADERS}/nlohmann ${PROJECT_BINARY_DIR}/headers/nlohmann SYMBOLIC)
foreach(package CLI11::CLI11 nlohmann_json::nlohmann_json)
    add_library(${package} INTERFACE IMPORTED)
    target_include_directories(${package} SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/headers)
endforeach()

if(TUL_TESTS)
    find_path(TUL_GTEST_SOURCES googletest/CMakeLists.txt PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    set(INSTALL_GTEST OFF)
    set(BUILD_GMOCK OFF)
    add_subdirectory(${TUL_GTEST_SOURCES} googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
