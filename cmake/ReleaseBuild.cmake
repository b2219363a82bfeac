# What users run reads whatever strangers serve: the compiler's cheap walls stand in it, as in all of Debian.
add_compile_options(-fstack-protector-strong)
add_compile_definitions(_FORTIFY_SOURCE=2)
add_link_options(LINKER:-z,relro LINKER:-z,now)

# Nothing in it tells in which folder it was built, so that two builds of one commit are the same.
add_compile_options(-ffile-prefix-map=${PROJECT_BINARY_DIR}/= -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
