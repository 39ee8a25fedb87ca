# What is installed, and the packages that cpack makes of it:
#   preset debian   a .deb for Debian 12
#   preset static   a .tar.gz with a program that needs no library, for any Linux
#   preset windows  a .zip for Windows
# `scripts/package` makes and checks all three. The version is that of project() in CMakeLists.txt.

set(packaging_folder ${PROJECT_SOURCE_DIR}/packaging)
set(generated ${PROJECT_BINARY_DIR}/packaging)

# --- Manual pages, with the version filled in --------------------------------------------------------------------

configure_file(docs/man/pedigreewatch.1 ${generated}/man/pedigreewatch.1 @ONLY)
configure_file(docs/man/pedigreewatch-tools.1 ${generated}/man/pedigreewatch-tools.1 @ONLY)
configure_file(docs/man/pedigreewatch.ini.5 ${generated}/man/pedigreewatch.ini.5 @ONLY)

# Without name and time stamp of the file the same page gives the same bytes in every build.
function(compress_file file)
  find_program(GZIP_PROGRAM gzip REQUIRED)
  execute_process(COMMAND ${GZIP_PROGRAM} -9nkf ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# A manual page as plain text, for systems without man(1).
function(render_manual_page page text_file)
  find_program(GROFF_PROGRAM groff)
  if(NOT GROFF_PROGRAM)
    message(STATUS "groff is missing: ${text_file} is left out")
    return()
  endif()
  execute_process(COMMAND ${GROFF_PROGRAM} -man -Tascii -P-cbou ${page} OUTPUT_FILE ${text_file}
                  COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# A document as a page for the browser: Notepad shows its long lines badly.
function(render_document document page)
  find_program(CMARK_PROGRAM cmark-gfm)
  if(NOT CMARK_PROGRAM)
    message(STATUS "cmark-gfm is missing: ${page} is left out")
    return()
  endif()
  execute_process(COMMAND ${packaging_folder}/windows/make_page.sh ${document} OUTPUT_FILE ${page}
                  COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
               ${document} ${packaging_folder}/windows/make_page.sh)
endfunction()

# The text of `source` in `target` with the line ends of Windows.
function(copy_with_crlf source target)
  file(READ ${source} text)
  string(REPLACE "\n" "\r\n" text "${text}")
  file(WRITE ${target} "${text}")
  if(NOT source MATCHES "^${PROJECT_BINARY_DIR}/")
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  endif()
endfunction()

# --- What is installed -------------------------------------------------------------------------------------------

install(TARGETS pedigreewatch pedigreewatch_tools RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# The desk, where `scripts/desk` has built it: beside the programs in the archives, elsewhere where no system leaves
# files out, as some do with documents.
if(WIN32 OR PEDIGREEWATCH_STATIC)
  set(desk_folder ${CMAKE_INSTALL_DOCDIR})
else()
  set(desk_folder ${CMAKE_INSTALL_DATADIR}/pedigreewatch)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/build/desk/pedigreewatch-desk.html DESTINATION ${desk_folder} OPTIONAL)
install(DIRECTORY docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs FILES_MATCHING PATTERN "*.png")

if(WIN32)
  file(REMOVE_RECURSE ${generated}/windows)
  # All texts but the reports get the line ends of Windows. A report has line feeds on every system.
  file(GLOB_RECURSE texts CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
       ${PROJECT_SOURCE_DIR}/examples/*.txt ${PROJECT_SOURCE_DIR}/examples/*.ini)
  foreach(text ${texts})
    copy_with_crlf(${PROJECT_SOURCE_DIR}/${text} ${generated}/windows/${text})
  endforeach()
  file(GLOB documents CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/docs/*.md)
  foreach(document README.md CHANGELOG.md CONTRIBUTING.md ${documents})
    string(REGEX REPLACE "\\.md$" ".html" page ${document})
    render_document(${PROJECT_SOURCE_DIR}/${document} ${generated}/page.html)
    if(EXISTS ${generated}/page.html)
      copy_with_crlf(${generated}/page.html ${generated}/windows/${page})
      file(REMOVE ${generated}/page.html)
    endif()
  endforeach()
  copy_with_crlf(${packaging_folder}/windows/run.cmd ${generated}/windows/run.cmd)
  copy_with_crlf(${PROJECT_SOURCE_DIR}/LICENSE ${generated}/windows/LICENSE.txt)
  foreach(page pedigreewatch.1 pedigreewatch-tools.1 pedigreewatch.ini.5)
    string(REGEX REPLACE "\\.[15]$" ".txt" name ${page})
    render_manual_page(${generated}/man/${page} ${generated}/${name})
    if(EXISTS ${generated}/${name})
      copy_with_crlf(${generated}/${name} ${generated}/windows/manual/${name})
    endif()
  endforeach()
  install(DIRECTORY ${generated}/windows/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples FILES_MATCHING PATTERN "*.out")

  enable_language(RC)
  foreach(program pedigreewatch pedigreewatch_tools)
    string(REPLACE "_" "-" program_name ${program})
    configure_file(${packaging_folder}/pedigreewatch.rc.in ${generated}/${program_name}.rc @ONLY)
    target_sources(${program} PRIVATE ${generated}/${program_name}.rc)
  endforeach()
else()
  install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs
          FILES_MATCHING PATTERN "*.md" PATTERN man EXCLUDE)
  install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
  compress_file(${generated}/man/pedigreewatch.1)
  compress_file(${generated}/man/pedigreewatch-tools.1)
  compress_file(${generated}/man/pedigreewatch.ini.5)
  install(FILES ${generated}/man/pedigreewatch.1.gz ${generated}/man/pedigreewatch-tools.1.gz
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${generated}/man/pedigreewatch.ini.5.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
endif()

# --- Packages ----------------------------------------------------------------------------------------------------

set(CPACK_PACKAGE_NAME pedigreewatch)
set(CPACK_PACKAGE_VENDOR "Pedigree Watch developers")
set(CPACK_PACKAGE_CONTACT "Pedigree Watch developers <pedigreewatch@localhost.localdomain>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "inbreeding, kinship and population statistics for herdbooks")
set(CPACK_STRIP_FILES ON)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME pedigreewatch-${PROJECT_VERSION}-windows-x86_64)
elseif(PEDIGREEWATCH_STATIC)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
  set(CPACK_GENERATOR TGZ)
  set(CPACK_PACKAGE_FILE_NAME pedigreewatch-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
else()
  set(CPACK_GENERATOR DEB)
  include(${packaging_folder}/debian.cmake)
endif()
include(CPack)

# --- Tests of the program for Windows, which wine runs -------------------------------------------------------------

if(WIN32 AND CMAKE_CROSSCOMPILING)
  enable_testing()
  add_test(NAME windows_program
           COMMAND ${PROJECT_SOURCE_DIR}/tests/package/check_windows.sh $<TARGET_FILE:pedigreewatch>
                   ${generated}/windows/run.cmd)
  set_tests_properties(windows_program PROPERTIES LABELS golden SKIP_RETURN_CODE 77 TIMEOUT 1200)
endif()
