# The tree that the simulator installs into a device folder, laid out as on a device.
set(DEVICE_ROOT ${CMAKE_BINARY_DIR}/device-root)

# install_on_device(TARGET FILE FOLDER): building TARGET also copies FILE to FOLDER, an absolute path on the device.
function(install_on_device target file folder)
  get_filename_component(source ${file} ABSOLUTE)
  get_filename_component(name ${file} NAME)
  set(copy ${DEVICE_ROOT}${folder}/${name})
  add_custom_command(OUTPUT ${copy} COMMAND ${CMAKE_COMMAND} -E make_directory ${DEVICE_ROOT}${folder}
                     COMMAND ${CMAKE_COMMAND} -E copy_if_different ${source} ${copy}
                     COMMAND ${CMAKE_COMMAND} -E touch ${copy} DEPENDS ${source})
  string(MAKE_C_IDENTIFIER ${target}${folder}/${name} id)
  add_custom_target(${id} DEPENDS ${copy})
  add_dependencies(${target} ${id})
endfunction()

# add_loadable_bundle(NAME DIRECTORY … [EXTENSION …] SOURCES … RESOURCES … LIBRARIES …)
#
# Builds a flat, device-style bundle: DIRECTORY/NAME.EXTENSION/{NAME, Info.plist, resources…}. NSBundle finds the
# executable through CFBundleExecutable.
function(add_loadable_bundle name)
  cmake_parse_arguments(arg "" "EXTENSION;DIRECTORY" "SOURCES;RESOURCES;LIBRARIES" ${ARGN})
  if(NOT arg_EXTENSION)
    set(arg_EXTENSION bundle)
  endif()
  set(folder ${arg_DIRECTORY}/${name}.${arg_EXTENSION})
  add_library(${name} MODULE ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX "" LIBRARY_OUTPUT_DIRECTORY ${folder})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
  if(NOT ZUNO_SANITIZE)
    target_link_options(${name} PRIVATE -Wl,-z,defs)
  endif()
  foreach(resource ${arg_RESOURCES})
    get_filename_component(file ${resource} NAME)
    add_custom_command(OUTPUT ${folder}/${file}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      COMMAND ${CMAKE_COMMAND} -E copy ${resource} ${folder}/${file}
      DEPENDS ${resource})
    list(APPEND copies ${folder}/${file})
  endforeach()
  if(copies)
    add_custom_target(${name}_resources DEPENDS ${copies})
    add_dependencies(${name} ${name}_resources)
  endif()
endfunction()
