# Code as its makers write it for a device: Objective-C and Objective-C++ with ARC or without, instance variables where
# they like, blocks as objects. The layer in simulator/objc/ runs it over GCC's runtime.
set(CMAKE_OBJC_COMPILER ${CMAKE_C_COMPILER})
enable_language(OBJC)

get_filename_component(makers_header ${CMAKE_CURRENT_LIST_DIR}/../simulator/objc/makers.h ABSOLUTE)

# makers_objc (with ARC) and makers_objc_manual (without): link one after the frameworks, whose options are for our own
# code. A source of its own may have either: -fobjc-arc, -fno-objc-arc.
add_library(makers_objc INTERFACE)
add_library(makers_objc_manual INTERFACE)
foreach(mode makers_objc=-fobjc-arc makers_objc_manual=-fno-objc-arc)
  string(REPLACE "=" ";" mode ${mode})
  list(GET mode 0 library)
  list(GET mode 1 arc)
  target_compile_options(${library} INTERFACE
    $<$<COMPILE_LANGUAGE:OBJC,OBJCXX>:-fobjc-runtime=gnustep-1.8 ${arc} -fblocks -fexceptions -fobjc-exceptions
      -fconstant-string-class=NSConstantString -include${makers_header}
      -idirafter ${gcc_include} -Wno-import -Wno-deprecated-declarations>)
  # C++'s runtime knows no exceptions of Objective-C: simulator/objc/Exceptions.mm stands before it.
  foreach(function __cxa_begin_catch __cxa_end_catch __cxa_rethrow _Unwind_Resume_or_Rethrow)
    target_link_options(${library} INTERFACE -Wl,--wrap=${function})
  endforeach()
endforeach()
