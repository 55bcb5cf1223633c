# The program folder: everything that the program keeps beside itself, laid out as it is run. The
# build lays one out to run from; an installation has one of the same shape, in the second place.
include(GNUInstallDirs)
set(QUILLON_PROGRAM_FOLDER "${CMAKE_BINARY_DIR}/app")
set(QUILLON_INSTALLED_FOLDER "${CMAKE_INSTALL_LIBDIR}/quillon")
file(MAKE_DIRECTORY "${QUILLON_PROGRAM_FOLDER}/Modes")

# quillon_install_link(LINK TARGET): both below the prefix; the link works wherever the prefix goes
function(quillon_install_link link target)
    cmake_path(GET link PARENT_PATH folder)
    cmake_path(GET link FILENAME name)
    cmake_path(RELATIVE_PATH target BASE_DIRECTORY "${folder}" OUTPUT_VARIABLE path)
    string(MD5 place "${link}")
    file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/links/${place}")
    file(CREATE_LINK "${path}" "${CMAKE_CURRENT_BINARY_DIR}/links/${place}/${name}" SYMBOLIC)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/links/${place}/${name}" DESTINATION "${folder}")
endfunction()
