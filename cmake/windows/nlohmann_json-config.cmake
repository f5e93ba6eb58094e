# The headers by themselves: the folder they are in has the host's own headers too.
include(${CMAKE_CURRENT_LIST_DIR}/host_headers.cmake)
kevra_host_headers(nlohmann_json::nlohmann_json nlohmann)
set(nlohmann_json_FOUND TRUE)
