# The libraries of the project, one a folder, and the walls between them.
#
# kevra_library(NAME [QT|POSIX] [HEADERS file...] [SOURCES file...] [PUBLIC library...] [PRIVATE library...])
#   The library of the current folder. PUBLIC names the libraries that its headers include, PRIVATE those that only
#   its sources do. Without SOURCES it is made of headers alone.
#   QT: the folder's windows, and its Qt forms of ports; exists only in a build with KEVRA_GUI. Without QT there is no
#   Qt on the include path.
#   POSIX: the forms of its ports that call a POSIX system; exists only there.
#   HEADERS: those of the folder that are the library's; by default *_qt.h, *_window.h, *_dialog.h and *_panel.h with
#   QT, *_posix.h with POSIX, and without either all the others that no library before it has claimed.
#
# A library's include path holds its own headers and those of the libraries it links, each as a link to the source
# file; a folder that includes what it does not link does not build.
set(KEVRA_INCLUDE ${PROJECT_BINARY_DIR}/include)
set(KEVRA_QT_HEADER "_(qt|window|dialog|panel)\\.h$")
set(KEVRA_POSIX_HEADER "_posix\\.h$")

# Makes DIRECTORY hold links to these headers of the current folder and nothing else.
function(kevra_link_headers directory)
    file(MAKE_DIRECTORY ${directory})
    file(GLOB present ${directory}/*)
    foreach(link ${present})
        file(READ_SYMLINK ${link} header)
        file(RELATIVE_PATH header ${CMAKE_CURRENT_SOURCE_DIR} ${header})
        if(NOT header IN_LIST ARGN)
            file(REMOVE ${link})
        endif()
    endforeach()
    foreach(header ${ARGN})
        get_filename_component(name ${header} NAME)
        if(NOT EXISTS ${directory}/${name})
            file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${directory}/${name} SYMBOLIC)
        endif()
    endforeach()
endfunction()

function(kevra_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QT;POSIX" "" "HEADERS;SOURCES;PUBLIC;PRIVATE")
    if((arg_QT AND NOT KEVRA_GUI) OR (arg_POSIX AND NOT UNIX))
        return()
    endif()
    if(NOT arg_HEADERS)
        file(GLOB arg_HEADERS CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.h)
        if(arg_QT)
            list(FILTER arg_HEADERS INCLUDE REGEX ${KEVRA_QT_HEADER})
        elseif(arg_POSIX)
            list(FILTER arg_HEADERS INCLUDE REGEX ${KEVRA_POSIX_HEADER})
        else()
            list(FILTER arg_HEADERS EXCLUDE REGEX "${KEVRA_QT_HEADER}|${KEVRA_POSIX_HEADER}")
            get_property(claimed DIRECTORY PROPERTY KEVRA_CLAIMED_HEADERS)
            list(REMOVE_ITEM arg_HEADERS ${claimed})
        endif()
    endif()
    set_property(DIRECTORY APPEND PROPERTY KEVRA_CLAIMED_HEADERS ${arg_HEADERS})
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    # One line a library, for tests/structure.
    string(REPLACE ";" " " row "${name}|${folder}|${arg_HEADERS}|${arg_SOURCES}|${arg_PUBLIC};${arg_PRIVATE}")
    set_property(GLOBAL APPEND PROPERTY KEVRA_STRUCTURE "${row}")
    kevra_link_headers(${KEVRA_INCLUDE}/${name}/${folder} ${arg_HEADERS})

    if(arg_SOURCES)
        add_library(${name} STATIC ${arg_SOURCES})
        set(public PUBLIC)
    else()
        add_library(${name} INTERFACE)
        set(public INTERFACE)
    endif()
    target_include_directories(${name} ${public} ${KEVRA_INCLUDE}/${name})
    target_link_libraries(${name} ${public} kevra_flags ${arg_PUBLIC})
    if(arg_PRIVATE)
        target_link_libraries(${name} PRIVATE ${arg_PRIVATE})
    endif()
    if(arg_QT)
        target_link_libraries(${name} ${public} kevra_qt)
        if(arg_SOURCES)
            set_target_properties(${name} PROPERTIES AUTOMOC ON)
            target_precompile_headers(${name} REUSE_FROM kevra_qt_precompiled)
        endif()
        set_property(GLOBAL APPEND PROPERTY KEVRA_QT_LIBRARIES ${name})
    else()
        set_property(GLOBAL APPEND PROPERTY KEVRA_LIBRARIES ${name})
    endif()
endfunction()

# Lets TARGET include the headers of libraries that it does not link.
function(kevra_headers target)
    foreach(library ${ARGN})
        target_include_directories(${target} PRIVATE ${KEVRA_INCLUDE}/${library})
    endforeach()
endfunction()

# Writes down which files are in which library, and what each links.
function(kevra_write_structure file)
    get_property(rows GLOBAL PROPERTY KEVRA_STRUCTURE)
    list(JOIN rows "\n" rows)
    file(CONFIGURE OUTPUT ${file} CONTENT "${rows}\n" @ONLY)
endfunction()
