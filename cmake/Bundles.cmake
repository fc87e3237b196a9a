# The tree that the simulator installs into a device folder, laid out as on a device.
set(DEVICE_ROOT ${CMAKE_BINARY_DIR}/device-root)

# belongs_on_device(FILE…): the absolute paths of what this build puts into the tree.
function(belongs_on_device)
  set_property(GLOBAL APPEND PROPERTY ON_DEVICE ${ARGN})
endfunction()

# To be called when all is told that belongs there: removes what an earlier build put into the tree and this one does
# not.
function(remove_what_left_the_device)
  get_property(kept GLOBAL PROPERTY ON_DEVICE)
  file(GLOB_RECURSE found LIST_DIRECTORIES true ${DEVICE_ROOT}/*)
  list(REMOVE_ITEM found ${kept})
  list(SORT found ORDER DESCENDING)  # What lies in a folder comes before it.
  foreach(path IN LISTS found)
    file(GLOB inside "${path}/*")
    if(NOT inside)
      file(REMOVE_RECURSE "${path}")
    endif()
  endforeach()
endfunction()

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
  belongs_on_device(${copy})
endfunction()

# add_loadable_bundle(TARGET DIRECTORY … [NAME …] [EXTENSION …] SOURCES … RESOURCES … LIBRARIES …)
#
# Builds a flat, device-style bundle: DIRECTORY/NAME.EXTENSION/{NAME, Info.plist, resources…}; NAME is TARGET unless
# given. RESOURCES are files, and folders with all that lies in them. NSBundle finds the executable through
# CFBundleExecutable. As on a device, what the code calls by name is its own where it has that name.
function(add_loadable_bundle target)
  cmake_parse_arguments(arg "" "NAME;EXTENSION;DIRECTORY" "SOURCES;RESOURCES;LIBRARIES" ${ARGN})
  if(NOT arg_NAME)
    set(arg_NAME ${target})
  endif()
  if(NOT arg_EXTENSION)
    set(arg_EXTENSION bundle)
  endif()
  set(folder "${arg_DIRECTORY}/${arg_NAME}.${arg_EXTENSION}")
  add_library(${target} MODULE ${arg_SOURCES})
  set_target_properties(${target} PROPERTIES
    PREFIX "" SUFFIX "" OUTPUT_NAME "${arg_NAME}" LIBRARY_OUTPUT_DIRECTORY "${folder}")
  belongs_on_device("${folder}/${arg_NAME}")
  target_link_libraries(${target} PRIVATE ${arg_LIBRARIES})
  target_link_options(${target} PRIVATE -Wl,-Bsymbolic)
  if(NOT ZUNO_SANITIZE)
    target_link_options(${target} PRIVATE -Wl,-z,defs)
  endif()
  foreach(resource IN LISTS arg_RESOURCES)
    get_filename_component(file "${resource}" NAME)
    set(copy copy)
    set(inside "")
    if(IS_DIRECTORY "${resource}")
      set(copy copy_directory)
      file(GLOB_RECURSE inside CONFIGURE_DEPENDS "${resource}/*")
    endif()
    add_custom_command(OUTPUT "${folder}/${file}"
      COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
      COMMAND ${CMAKE_COMMAND} -E ${copy} "${resource}" "${folder}/${file}"
      DEPENDS "${resource}" ${inside})
    list(APPEND copies "${folder}/${file}")
    list(TRANSFORM inside REPLACE "^${resource}" "${folder}/${file}")
    belongs_on_device("${folder}/${file}" ${inside})
  endforeach()
  if(copies)
    add_custom_target(${target}_resources DEPENDS ${copies})
    add_dependencies(${target} ${target}_resources)
  endif()
endfunction()
