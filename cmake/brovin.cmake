# Warnings, sanitizers and hardening for everything that is built here, and the two ways to declare a target.

add_library(brovin_flags INTERFACE)
target_compile_features(brovin_flags INTERFACE cxx_std_20)
target_compile_options(brovin_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wnon-virtual-dtor -Wsuggest-override)
if(CMAKE_UNITY_BUILD)
    # Of a source that another one includes the compiler says that its private names should not be in a header.
    target_compile_options(brovin_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(BROVIN_WERROR)
    target_compile_options(brovin_flags INTERFACE -Werror)
endif()
if(BROVIN_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(brovin_flags INTERFACE ${sanitizers})
    # Modules are opened by the sanitizers' own library in the program's name, for which only this kind of path counts.
    target_link_options(brovin_flags INTERFACE ${sanitizers} -Wl,--disable-new-dtags)
endif()
if(BROVIN_HARDENED)
    target_compile_options(brovin_flags INTERFACE
        -fstack-protector-strong -fstack-clash-protection -fcf-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
        -D_GLIBCXX_ASSERTIONS)
    target_link_options(brovin_flags INTERFACE -Wl,-z,relro,-z,now)
endif()

# brovin_library(NAME FOLDER folder HEADERS ... [SOURCES ...] [DEPENDS ...])
#
# One room of the house. Its headers are reachable as "folder/header.h" for those, and only those, who name
# the room under DEPENDS: a link to each listed header goes into a folder of the room's own, and that folder is
# all that others get to see. An include against the line of rooms does not compile.
function(brovin_library name)
    cmake_parse_arguments(room "" "FOLDER" "HEADERS;SOURCES;DEPENDS" ${ARGN})
    set(shown ${PROJECT_BINARY_DIR}/rooms/${name}/src)
    foreach(header IN LISTS room_HEADERS)
        cmake_path(GET header PARENT_PATH subfolder)
        file(MAKE_DIRECTORY ${shown}/${room_FOLDER}/${subfolder})
        file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${shown}/${room_FOLDER}/${header} SYMBOLIC)
    endforeach()
    list(TRANSFORM room_DEPENDS PREPEND brovin_)
    if(room_SOURCES)
        add_library(brovin_${name} STATIC ${room_SOURCES})
        set(reach PUBLIC)
        target_link_libraries(brovin_${name} PRIVATE brovin_flags)
    else()
        add_library(brovin_${name} INTERFACE)
        set(reach INTERFACE)
        target_compile_features(brovin_${name} INTERFACE cxx_std_20)
    endif()
    target_include_directories(brovin_${name} ${reach} ${shown})
    target_link_libraries(brovin_${name} ${reach} ${room_DEPENDS})
endfunction()

# brovin_module(NAME): a module that the program opens when it needs it. Its file carries the version: a program that is
# still running when another version is installed in its place finds its own module gone, and never one that it does not fit.
function(brovin_module name)
    set_target_properties(${name} PROPERTIES PREFIX "" OUTPUT_NAME ${name}-${PROJECT_VERSION}
        LIBRARY_OUTPUT_DIRECTORY ${BROVIN_MODULES})
    install(TARGETS ${name} LIBRARY DESTINATION lib/brovin)
endfunction()

# Tests are built to be there soon, not to run fast: what they test is compiled in full. Several sources are compiled
# as one, which takes less than half of the time, and the headers that all of them read are read once, with the first
# test program.
function(brovin_build_soon target)
    target_compile_options(${target} PRIVATE -fPIC $<$<NOT:$<CONFIG:Debug>>:-O1>)
    if(BROVIN_SANITIZE)
        target_compile_options(${target} PRIVATE -fno-sanitize=undefined)
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 20)
    if(target STREQUAL text_test)
        target_precompile_headers(text_test PRIVATE <gtest/gtest.h> <algorithm> <chrono> <filesystem> <functional> <map>)
    else()
        target_precompile_headers(${target} REUSE_FROM text_test)
    endif()
endfunction()

# What the sanitizers watch: to be built by this target, and run by `ctest -L without_display`.
add_custom_target(tests_without_display)

# brovin_test(NAME SOURCES ... DEPENDS ...): a GoogleTest program that ctest runs as one test, and that needs no
# display.
function(brovin_test name)
    cmake_parse_arguments(test "" "" "SOURCES;DEPENDS" ${ARGN})
    list(TRANSFORM test_DEPENDS PREPEND brovin_)
    add_executable(${name}_test ${test_SOURCES})
    target_link_libraries(${name}_test PRIVATE brovin_flags ${test_DEPENDS} GTest::gtest GTest::gtest_main)
    target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    brovin_build_soon(${name}_test)
    add_test(NAME ${name} COMMAND ${name}_test)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 LABELS without_display)
    add_dependencies(tests_without_display ${name}_test)
endfunction()
