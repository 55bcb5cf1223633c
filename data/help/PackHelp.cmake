# Packs the files ENTRIES (names with blanks between them) of the folder SOURCE, in that order, and a
# listing of their sums, into the tar archive OUTPUT. STAGE is a folder to work in.
separate_arguments(ENTRIES)
file(REMOVE_RECURSE "${STAGE}")
set(sums "")
foreach(entry IN LISTS ENTRIES)
    configure_file("${SOURCE}/${entry}" "${STAGE}/${entry}" COPYONLY)
    file(SHA256 "${STAGE}/${entry}" sum)
    string(APPEND sums "${sum}  ${entry}\n")
endforeach()
file(WRITE "${STAGE}/SHA256SUMS" "${sums}")
execute_process(
    COMMAND "${CMAKE_COMMAND}" -E tar cf "${OUTPUT}" --format=gnutar --mtime=1980-01-01
        -- ${ENTRIES} SHA256SUMS
    WORKING_DIRECTORY "${STAGE}"
    COMMAND_ERROR_IS_FATAL ANY)
