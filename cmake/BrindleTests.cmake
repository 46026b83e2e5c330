# The tests: one program test_<folder> a folder of tests/ with *.cpp, and each *.py as it stands. ctest
# has one entry a program or script, tools/run_tests.py counts the cases inside.

find_program(BRINDLE_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH
             DOC "The system's own python, which sees Debian's python3-* packages")
if(NOT BRINDLE_PYTHON)
  set(BRINDLE_PYTHON python3)
endif()

# Registers one test. It runs in a folder of its own and finds the trees in its environment.
function(brindle_register_test name)
  set(work ${PROJECT_BINARY_DIR}/tests/${name})
  file(MAKE_DIRECTORY ${work})
  file(CHMOD ${work} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${work})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT "\
BRINDLE_SOURCE_DIR=${PROJECT_SOURCE_DIR};BRINDLE_BUILD_DIR=${PROJECT_BINARY_DIR};\
QT_QPA_PLATFORM=offscreen;XDG_RUNTIME_DIR=${work};\
ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1;\
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1")
endfunction()

# Adds the tests of tests/<folder>/. SOURCES are compiled into its program too, LIBRARIES linked.
function(brindle_add_tests folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp)
  file(GLOB scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.py)
  if(sources)
    brindle_folder_name(${folder} name)
    add_executable(test_${name} ${sources} ${arg_SOURCES})
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_compile_definitions(test_${name} PRIVATE BRINDLE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    target_link_libraries(test_${name} PRIVATE brindle ${arg_LIBRARIES} GTest::gtest
                                               GTest::gtest_main)
    brindle_register_test(${folder} test_${name})
  endif()
  foreach(script IN LISTS scripts)
    cmake_path(GET script STEM stem)
    brindle_register_test(${folder}/${stem} ${BRINDLE_PYTHON} -B ${script})
  endforeach()
endfunction()

# Tests of programs: tests/<kind>/<name>/ has the sources of <kind>/<name>/ but main.cpp.
function(brindle_add_program_tests kind)
  brindle_subfolders(tests/${kind} names)
  foreach(name IN LISTS names)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${kind}/${name}/*.cpp)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    brindle_add_tests(${kind}/${name} SOURCES ${sources})
  endforeach()
endfunction()

# Compiles each public header alone. A header with a source of the same name needs nothing: that
# source includes it first, which tools/check_layers.py sees to.
function(brindle_add_header_check)
  brindle_layer_folders(folders)
  list(REMOVE_ITEM folders platform/qt)
  set(units "")
  foreach(folder IN LISTS folders)
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
         ${PROJECT_SOURCE_DIR}/brindle/${folder}/*.h)
    list(FILTER headers EXCLUDE REGEX "_internal\\.h$")
    foreach(header IN LISTS headers)
      cmake_path(REPLACE_EXTENSION header cpp OUTPUT_VARIABLE unit)
      if(NOT EXISTS ${PROJECT_SOURCE_DIR}/${unit})
        file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/header_check/${unit}
             CONTENT "#include \"@header@\"\n" @ONLY)
        list(APPEND units ${PROJECT_BINARY_DIR}/header_check/${unit})
      endif()
    endforeach()
  endforeach()
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/header_check/brindle/brindle.cpp
       CONTENT "#include \"brindle/brindle.h\"\n" @ONLY)
  add_library(header_check OBJECT ${PROJECT_BINARY_DIR}/header_check/brindle/brindle.cpp ${units})
  target_include_directories(header_check PRIVATE ${PROJECT_SOURCE_DIR})
endfunction()

function(brindle_add_all_tests)
  find_package(GTest REQUIRED)
  brindle_layer_folders(folders)
  list(REMOVE_ITEM folders platform/qt)
  # The tests of what is drawn in space set up their scene themselves.
  set(libraries_dxf OpenGL::GL)
  set(libraries_mesh OpenGL::GL)
  foreach(folder IN LISTS folders)
    brindle_add_tests(${folder} LIBRARIES ${libraries_${folder}})
  endforeach()
  if(BRINDLE_QT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    brindle_add_tests(platform/qt LIBRARIES brindle_qt Qt6::Widgets Qt6::Test)
  endif()
  brindle_add_program_tests(apps)
  brindle_add_program_tests(examples)
  if(NOT BRINDLE_ASAN)
    # Neither of them runs code that the sanitizers see.
    brindle_add_tests(tools)
    brindle_add_tests(package)
    brindle_add_header_check()
  endif()
endfunction()
