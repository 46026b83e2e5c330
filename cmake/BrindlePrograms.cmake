# Programs of one folder each: apps/<name>/, examples/<name>/.

# Makes the program `target`, file name `output_name`, out of the folder's sources.
function(brindle_add_program folder target output_name)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${target} ${sources})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${target} PRIVATE brindle)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME ${output_name} RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${folder})
endfunction()

# The names of the folders in `folder`.
function(brindle_subfolders folder result)
  file(GLOB children CONFIGURE_DEPENDS LIST_DIRECTORIES true
       RELATIVE ${PROJECT_SOURCE_DIR}/${folder} ${PROJECT_SOURCE_DIR}/${folder}/*)
  set(names "")
  foreach(child IN LISTS children)
    if(IS_DIRECTORY ${PROJECT_SOURCE_DIR}/${folder}/${child})
      list(APPEND names ${child})
    endif()
  endforeach()
  set(${result} ${names} PARENT_SCOPE)
endfunction()
