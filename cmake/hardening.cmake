# What a distribution wants of programs that open files of others: checked copies, guarded stacks, and tables of functions that
# can't be written once the program has started. Debian's compiler makes position-independent programs by itself.
if(NOT KAVEL_SANITIZE)
  add_compile_options($<$<CONFIG:Release>:-fstack-protector-strong> $<$<CONFIG:Release>:-fstack-clash-protection>)
  add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
endif()
add_link_options(LINKER:-z,relro,-z,now)
