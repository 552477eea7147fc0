# Compiler settings shared by every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

# ccache, where present, is told to look through the checkout's own path, so that every clone shares one cache.
find_program(MARLOVENT_CCACHE ccache)
if(MARLOVENT_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
                                  ${MARLOVENT_CCACHE})
endif()

if(NOT MSVC)
  add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 takes a text put in front of a std::string for overlapping memory once it optimises (its bug 105651).
    add_compile_options(-Wno-restrict)
  endif()
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    # A program without windows is not to load the libraries of those with.
    add_link_options(-Wl,--as-needed)
  endif()
  if(MARLOVENT_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
  endif()
  if(MARLOVENT_FUZZ)
    # The whole core is watched, so that the fuzzer sees which inputs reach new code.
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
  endif()
endif()
