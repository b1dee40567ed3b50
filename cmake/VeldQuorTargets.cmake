# What all targets of the project have in common.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    add_compile_options(-Wno-restrict) # false of "text" + std::string; the address sanitizer sees real overlaps
endif()

# Hardened as Debian builds its packages. Intel's control-flow enforcement is left out: the start files of Debian 12
# don't have it, so that no program has it in the end.
add_compile_options(-fstack-protector-strong -fstack-clash-protection)
add_link_options(-Wl,-z,relro,-z,now)
add_link_options(-Wl,--as-needed) # what a process loads and doesn't call delays its start

# The flag for the sanitizers of this build, as -fsanitize=address,undefined; empty without one.
string(REGEX MATCH "-fsanitize=[^ ]*" VELD_QUOR_SANITIZERS "${CMAKE_CXX_FLAGS}")
if(NOT VELD_QUOR_SANITIZERS)
    add_compile_options("$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()

# An exported, versioned shared library: libveld-quor-NAME.so, Veld::TARGET.
function(veld_quor_library target name)
    add_library(${target} SHARED ${ARGN})
    add_library(Veld::${target} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME veld-quor-${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        BUILD_RPATH "$ORIGIN"
        INSTALL_RPATH "$ORIGIN" # the siblings are found below any prefix
        LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_compile_features(${target} INTERFACE cxx_std_17) # the public headers ask for no more
    target_link_options(${target} PRIVATE
        -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map)
    if(NOT VELD_QUOR_SANITIZERS)
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    install(TARGETS ${target} EXPORT VeldQuorKeywordsTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

option(VELD_QUOR_CACHE "Take what was compiled before from ccache, where it is installed" OFF)
if(VELD_QUOR_CACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(ccache ccache)
    if(ccache)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
            CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_ctime,include_file_mtime ${ccache})
        if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
            add_compile_options("SHELL:-Xclang -fno-pch-timestamp") # or no file that is precompiled is found again
        endif()
    endif()
endif()

set(VELD_QUOR_WHOLE_BUILDS OFF CACHE STRING
    "Compile many files at once, for whole builds: ON, or CALLERS: those of the program and the tests; OFF: for work on files")

# Files of a target that are compiled together. What they have in unnamed namespaces needs unique names; the
# warnings that see one file's names from another are left to the builds that compile each file by itself.
function(veld_quor_batches target size)
    set(library ${PROJECT_SOURCE_DIR}/quor)
    cmake_path(IS_PREFIX library ${CMAKE_CURRENT_SOURCE_DIR} is_library)
    if(VELD_QUOR_WHOLE_BUILDS STREQUAL ON OR (VELD_QUOR_WHOLE_BUILDS STREQUAL CALLERS AND NOT is_library))
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${size}
            UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include): one of the batch")
        target_compile_options(${target} PRIVATE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
    if(VELD_QUOR_WHOLE_BUILDS STREQUAL CALLERS AND NOT is_library)
        target_compile_options(${target} PRIVATE -O0) # the library takes the time
    endif()
endfunction()

# Headers that the files of a target share, read once. A target with the flags of another can have what was
# precompiled for that one: veld_quor_precompile(TARGET REUSE_FROM OTHER).
function(veld_quor_precompile target)
    if(VELD_QUOR_WHOLE_BUILDS STREQUAL OFF)
        return()
    endif()
    if(ARGV1 STREQUAL REUSE_FROM)
        target_precompile_headers(${target} REUSE_FROM ${ARGV2})
    else()
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# The same for a part of the library, in the build that compiles its files by themselves, again and again.
function(veld_quor_precompile_library target)
    if(VELD_QUOR_WHOLE_BUILDS STREQUAL CALLERS)
        target_precompile_headers(${target} PRIVATE <algorithm> <cmath> <filesystem> <functional> <limits> <map> <memory>
            <optional> <set> <stdexcept> <string> <string_view> <unordered_map> <utility> <vector> ${ARGN})
    endif()
endfunction()
