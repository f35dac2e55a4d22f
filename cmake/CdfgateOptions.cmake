# Compiler flags shared by every target of the project.
add_library(cdfgate_flags INTERFACE)
target_compile_options(cdfgate_flags INTERFACE -Wall -Wextra)
if(CDFGATE_WERROR)
  target_compile_options(cdfgate_flags INTERFACE -Werror)
endif()
if(CDFGATE_SANITIZE)
  target_compile_options(cdfgate_flags INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=undefined)
  target_link_options(cdfgate_flags INTERFACE -fsanitize=address,undefined)
endif()
if(CDFGATE_FUZZ)
  target_compile_options(cdfgate_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined)
  target_link_options(cdfgate_flags INTERFACE -fsanitize=address,undefined)
endif()

# Collects the sources of one folder into a static library. Folders that hold no
# source yet produce no target, so a layer can grow one module at a time.
function(cdfgate_module target dir)
  file(GLOB sources CONFIGURE_DEPENDS "${dir}/*.cpp" "${dir}/*.c")
  if(NOT sources)
    return()
  endif()
  add_library(${target} STATIC ${sources})
  target_link_libraries(${target} PUBLIC cdfgate_flags)
endfunction()

# One GoogleTest executable per test folder; every *.cpp of the folder is part of it.
function(cdfgate_test_folder name dir)
  file(GLOB sources CONFIGURE_DEPENDS "${dir}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE cdfgate_flags GTest::gtest GTest::gtest_main ${ARGN})
  target_compile_definitions(${name} PRIVATE
    CDFGATE_SHARED_DATA="${CDFGATE_SHARED_DATA}"
    CDFGATE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT
                       "CDFGATE_SHARED_DATA=${CDFGATE_SHARED_DATA}")
endfunction()
