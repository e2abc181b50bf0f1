# Gives one of our targets the warnings, the checks and the sanitizers that all of them have.
function(vond_configure_target target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(VOND_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 warns falsely about "literal" + std::string() when it optimises (GCC bug 105651).
    # clang-tidy, which reads the same command line, does not know that one.
    target_compile_options(${target} PRIVATE -Wno-restrict -Wno-unknown-warning-option)
  endif()
  if(VOND_SANITIZERS)
    target_compile_options(${target} PRIVATE -fsanitize=${VOND_SANITIZERS}
                                             -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${VOND_SANITIZERS})
  endif()
  if(VOND_CLANG_TIDY)
    find_program(VOND_CLANG_TIDY_PROGRAM NAMES clang-tidy-14 clang-tidy REQUIRED)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY ${VOND_CLANG_TIDY_PROGRAM})
  endif()
endfunction()

# vond_look_for_libraries(TARGET PATH): TARGET looks for libraries in PATH, where they are installed, and
# beside itself, where they are built. One path for both: CMake ends one that it is going to replace with
# an empty entry, which is the current folder. Who packages for a system, which finds its libraries, has
# none installed.
function(vond_look_for_libraries target path)
  if(NOT CMAKE_SKIP_INSTALL_RPATH)
    set_target_properties(${target} PROPERTIES
      INSTALL_RPATH "${path};$ORIGIN"
      BUILD_WITH_INSTALL_RPATH ON
    )
  endif()
endfunction()
