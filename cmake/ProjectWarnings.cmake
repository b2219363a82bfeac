# Warnings for our own code only: a target asks for them by linking project_warnings privately.
add_library(project_warnings INTERFACE)
target_compile_options(project_warnings INTERFACE
  -Wall -Wextra -Wshadow -Wpedantic -Wconversion -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wimplicit-fallthrough)
if(VESKEL_WERROR)
  target_compile_options(project_warnings INTERFACE -Werror)
endif()
