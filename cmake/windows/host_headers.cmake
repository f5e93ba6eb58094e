# kevra_host_headers(TARGET FOLDER): a library made of the headers in /usr/include/FOLDER.
function(kevra_host_headers target folder)
    set(headers ${PROJECT_BINARY_DIR}/host_headers)
    file(MAKE_DIRECTORY ${headers})
    file(CREATE_LINK /usr/include/${folder} ${headers}/${folder} SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED)
    target_include_directories(${target} SYSTEM INTERFACE ${headers})
endfunction()
