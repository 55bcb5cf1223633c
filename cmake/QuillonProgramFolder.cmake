# The program folder: everything that the program keeps beside itself, laid out as it is run.
set(QUILLON_PROGRAM_FOLDER "${CMAKE_BINARY_DIR}/app")
file(MAKE_DIRECTORY "${QUILLON_PROGRAM_FOLDER}/Modes")
