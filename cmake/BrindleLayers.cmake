# The libraries: one object library a folder of cmake/layers.txt, the shared library `brindle` out of
# all of them but platform/qt, and the shared library `brindle-qt` out of platform/qt.

# The folders of cmake/layers.txt, in their order.
function(brindle_layer_folders result)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
               ${PROJECT_SOURCE_DIR}/cmake/layers.txt)
  file(STRINGS ${PROJECT_SOURCE_DIR}/cmake/layers.txt lines REGEX "^[a-z]")
  list(TRANSFORM lines REPLACE ":.*" "")
  set(${result} ${lines} PARENT_SCOPE)
endfunction()

# platform/base -> platform_base, the form of a folder in target names.
function(brindle_folder_name folder result)
  string(REPLACE "/" "_" name "${folder}")
  set(${result} ${name} PARENT_SCOPE)
endfunction()

# Makes the object library brindle_<folder>; `result` gets its name, or nothing for a folder without
# sources.
function(brindle_add_layer folder result)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/brindle/${folder}/*.cpp)
  if(NOT sources)
    set(${result} "" PARENT_SCOPE)
    return()
  endif()
  brindle_folder_name(${folder} name)
  add_library(brindle_${name} OBJECT ${sources})
  target_include_directories(brindle_${name} PUBLIC ${PROJECT_SOURCE_DIR})
  set(${result} brindle_${name} PARENT_SCOPE)
endfunction()

# A library that the package exports as brindle::<export_name>, and the build tree knows so too.
function(brindle_add_library target export_name output_name)
  if(BRINDLE_FUZZ)
    set(kind STATIC)  # one coverage map, one sanitizer runtime
  else()
    set(kind SHARED)
  endif()
  list(TRANSFORM ARGN REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  add_library(${target} ${kind} ${objects})
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    LINKER_LANGUAGE CXX OUTPUT_NAME ${output_name} EXPORT_NAME ${export_name}
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS_NO_SHARED ON)
  if(UNIX AND NOT APPLE AND NOT BRINDLE_ASAN)
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
  add_library(brindle::${export_name} ALIAS ${target})
endfunction()

function(brindle_add_layers)
  brindle_layer_folders(folders)
  list(REMOVE_ITEM folders platform/qt)
  set(layers "")
  foreach(folder IN LISTS folders)
    brindle_add_layer(${folder} layer)
    list(APPEND layers ${layer})
  endforeach()
  brindle_add_library(brindle brindle brindle ${layers})
  find_package(PNG REQUIRED)
  target_link_libraries(brindle_platform_graphics PRIVATE PNG::PNG)
  target_link_libraries(brindle PRIVATE PNG::PNG)

  # The assets of the source tree serve programs that run from the build tree.
  set_source_files_properties(${PROJECT_SOURCE_DIR}/brindle/platform/base/assets.cpp PROPERTIES
    COMPILE_DEFINITIONS "BRINDLE_SOURCE_ASSETS=\"${PROJECT_SOURCE_DIR}/assets\"")

  # OpenGL 1.1 for scenes; EGL gives a context where there is no display.
  find_package(OpenGL REQUIRED COMPONENTS OpenGL EGL)
  target_link_libraries(brindle_platform_opengl PRIVATE OpenGL::GL OpenGL::EGL)
  target_link_libraries(brindle_dxf PRIVATE OpenGL::GL)
  target_link_libraries(brindle PRIVATE OpenGL::GL OpenGL::GLU OpenGL::EGL)

  if(BRINDLE_QT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Gui Widgets PrintSupport)
    brindle_add_layer(platform/qt layer)
    # The toolkit's headers cost more than our code: all of the folder in one translation unit.
    set_target_properties(${layer} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
    target_link_libraries(${layer} PRIVATE Qt6::Gui Qt6::Widgets Qt6::PrintSupport)
    brindle_add_library(brindle_qt qt brindle-qt ${layer})
    target_link_libraries(brindle_qt PUBLIC brindle
                                     PRIVATE Qt6::Gui Qt6::Widgets Qt6::PrintSupport)
  endif()
endfunction()
