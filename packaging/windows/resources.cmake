# Every executable for Windows says that its texts are UTF-8, that its paths may be long and that it
# follows the scale of each screen; and shows the program's icon and version.
enable_language(RC)

# dtb_resources(TARGET TITLE)
function(dtb_resources target title)
  set(DTB_TITLE ${title})
  set(DTB_FILE ${target}.exe)
  set(DTB_PACKAGING ${CMAKE_SOURCE_DIR}/packaging/windows)
  configure_file(${DTB_PACKAGING}/program.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()
