# The core as WebAssembly: the desk's worker, and both programs for Node, which run where they are started and read and
# write the files there.
# With more optimisation the clang++ 14 of emscripten does not come to an end with this one.
set_source_files_properties(${PROJECT_SOURCE_DIR}/src/intake/column_choice.cpp PROPERTIES COMPILE_OPTIONS -O2)
set(wasm_memory -sALLOW_MEMORY_GROWTH -sMAXIMUM_MEMORY=4GB)
foreach(program pedigreewatch pedigreewatch_tools)
  target_link_options(${program} PRIVATE -fexceptions ${wasm_memory} -sNODERAWFS -sEXIT_RUNTIME -sSINGLE_FILE -sENVIRONMENT=node)
endforeach()

# For a worker made from a text, which hands over the bytes of the core itself: nothing is loaded from anywhere, nothing
# is evaluated.
set(table_of_operations ${CMAKE_CURRENT_LIST_DIR}/operations.ts)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table_of_operations})
file(STRINGS ${table_of_operations} desk_operations REGEX "^  [A-Za-z]+: \"desk_[a-z_]+\",$")
list(TRANSFORM desk_operations REPLACE ".*\"(desk_[a-z_]+)\".*" "_\\1")
list(REMOVE_DUPLICATES desk_operations)
list(JOIN desk_operations "," desk_operations)
add_executable(desk_core src/desk/desk_interface.cpp)
target_link_libraries(desk_core PRIVATE pedigreewatch_core pedigreewatch_inflate)
target_link_options(desk_core PRIVATE
  -fexceptions ${wasm_memory} -sINITIAL_MEMORY=32MB -sMODULARIZE -sEXPORT_NAME=createDeskCore
  -sENVIRONMENT=worker -sDYNAMIC_EXECUTION=0 -sALLOW_TABLE_GROWTH -sFORCE_FILESYSTEM --no-entry
  -sEXPORTED_FUNCTIONS=_malloc,_free,${desk_operations} -sEXPORTED_RUNTIME_METHODS=FS,addFunction,UTF8ToString,stringToUTF8,lengthBytesUTF8)
