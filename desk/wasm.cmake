# The core as WebAssembly: the desk's worker, and both programs for Node, which run where they are started and read and
# write the files there.
set(wasm_memory -sALLOW_MEMORY_GROWTH -sMAXIMUM_MEMORY=4GB)
foreach(program pedigreewatch pedigreewatch_tools)
  target_link_options(${program} PRIVATE -fexceptions ${wasm_memory} -sNODERAWFS -sEXIT_RUNTIME -sENVIRONMENT=node)
endforeach()
