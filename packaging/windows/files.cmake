# CPack runs this before it calls NSIS: writes files.nsh, by which the installer knows the names of all that it brings.
#
# EACH_FILE and EACH_FOLDER are macros of NSIS that do a macro of one parameter, a path within the program's folder,
# for each file, and for each folder with the inner ones first.
set(inside "${CPACK_TEMPORARY_DIRECTORY}")

function(macro_of name paths)
    string(APPEND lines "!macro ${name} DO\n")
    foreach(path IN LISTS paths)
        string(REPLACE "/" "\\" path "${path}")
        string(REPLACE "$" "$$" path "${path}")
        string(APPEND lines "  !insertmacro \${DO} \"${path}\"\n")
    endforeach()
    file(APPEND "${CPACK_TOPLEVEL_DIRECTORY}/files.nsh" "${lines}!macroend\n")
endfunction()

file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE "${inside}" "${inside}/*")
file(GLOB_RECURSE folders LIST_DIRECTORIES true RELATIVE "${inside}" "${inside}/*")
list(REMOVE_ITEM folders ${files})
list(SORT folders ORDER DESCENDING)
file(WRITE "${CPACK_TOPLEVEL_DIRECTORY}/files.nsh" "")
macro_of(EACH_FILE "${files}")
macro_of(EACH_FOLDER "${folders}")
