# Compiler flags shared by every target, and the imported libraries of the platform below us.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(microhttpd REQUIRED IMPORTED_TARGET libmicrohttpd)
pkg_check_modules(cairo REQUIRED IMPORTED_TARGET cairo)
pkg_check_modules(pango REQUIRED IMPORTED_TARGET pangocairo)
pkg_check_modules(pixbuf REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
pkg_check_modules(png REQUIRED IMPORTED_TARGET libpng)
find_package(nlohmann_json REQUIRED)

option(ZUNO_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_compile_options(-Wall -Wextra -Werror -fvisibility=default)
add_link_options(-fuse-ld=lld)
if(ZUNO_SANITIZE)
  # Reports name functions and lines. Variables for a debugger are in the preset dev: writing them down takes a tenth of
  # the time of compiling.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
  add_link_options(-fsanitize=address,undefined)
endif()

# Most of the time of compiling goes into headers that are not ours. A compiler cache looks at what the preprocessor
# makes of a source, and has no use for them.
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# join_sources(TARGET): compiles TARGET's sources several at a time; see join.py. A source that changes has them joined
# anew, since it may have got a name that another has.
option(ZUNO_JOIN "Compile several sources as one" OFF)
function(join_sources target)
  if(NOT ZUNO_JOIN)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  execute_process(COMMAND /usr/bin/python3 -B ${CMAKE_SOURCE_DIR}/cmake/join.py
                          ${CMAKE_CURRENT_BINARY_DIR}/joined/${target} ${sources}
                  WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} OUTPUT_VARIABLE joined
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set_target_properties(${target} PROPERTIES SOURCES "${joined}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
endfunction()

# precompile(TARGET [OBJCXX HEADER…] [ALL HEADER…]): compiles some of the standard library's headers once for TARGET,
# and those named (without angle brackets): for its Objective-C++, or for that and its C++. A source names what it uses
# all the same. A language of which TARGET has one source or two is left alone: its headers would take longer than both.
function(precompile target)
  cmake_parse_arguments(arg "" "" "OBJCXX;ALL" ${ARGN})
  set(languages CXX OBJCXX)
  set(suffixes cpp mm)
  get_target_property(sources ${target} SOURCES)
  set(angle "$<ANGLE-R>")
  set(headers "")
  foreach(language suffix IN ZIP_LISTS languages suffixes)
    set(compiled ${sources})
    list(FILTER compiled INCLUDE REGEX "\\.${suffix}$")
    list(LENGTH compiled count)
    if(count GREATER 2)
      foreach(header algorithm filesystem functional map memory optional string string_view vector ${arg_ALL}
                     ${arg_${language}})
        list(APPEND headers "$<$<COMPILE_LANGUAGE:${language}>:<${header}${angle}>")
      endforeach()
    endif()
  endforeach()
  if(headers)
    target_precompile_headers(${target} PRIVATE ${headers})
  endif()
endfunction()

# Objective-C++ over GNUstep base on GCC's runtime. GNUstep and GCC say themselves where their headers lie. objc/objc.h
# lies among GCC's own; it must come after clang's, whose intrinsics GCC's would shadow.
execute_process(COMMAND gnustep-config --variable=GNUSTEP_SYSTEM_HEADERS OUTPUT_VARIABLE gnustep_include
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND gcc -print-file-name=include OUTPUT_VARIABLE gcc_include OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
add_library(gnustep INTERFACE)
target_include_directories(gnustep SYSTEM INTERFACE ${gnustep_include})
target_compile_options(gnustep INTERFACE
  $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-runtime=gcc -fblocks -fno-objc-arc -fexceptions -fobjc-exceptions
    -fconstant-string-class=NSConstantString -idirafter ${gcc_include} -Wno-import -Wno-deprecated-declarations
    -Werror=objc-property-implementation -Werror=incompatible-pointer-types -Werror=objc-method-access>)
target_compile_definitions(gnustep INTERFACE
  GNUSTEP GNUSTEP_BASE_LIBRARY=1 GNU_RUNTIME=1 _NATIVE_OBJC_EXCEPTIONS)
target_link_libraries(gnustep INTERFACE gnustep-base objc Threads::Threads)
