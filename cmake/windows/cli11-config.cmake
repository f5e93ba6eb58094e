# The headers by themselves: the folder they are in has the host's own headers too.
include(${CMAKE_CURRENT_LIST_DIR}/host_headers.cmake)
kevra_host_headers(CLI11::CLI11 CLI)
set(CLI11_FOUND TRUE)
