# Every outside library, in one place. All come from Debian packages (scripts/packages.sh names them).
find_package(Threads REQUIRED)
find_package(CURL REQUIRED)
find_package(LibXml2 REQUIRED)
find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(PkgConfig REQUIRED)
pkg_check_modules(PCRE2 REQUIRED IMPORTED_TARGET libpcre2-8)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
pkg_check_modules(HTTPLIB REQUIRED IMPORTED_TARGET cpp-httplib)  # the demo's server and the tests' servers
find_package(OpenSSL REQUIRED)  # by cpp-httplib
if(VESKEL_TESTS)
  find_package(GTest REQUIRED)
endif()
