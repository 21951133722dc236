# quaverly_empty_catalogue()
# Makes the empty catalogue beside the program, by running the program quaverly-empty-catalogue. The
# path is in QUAVERLY_EMPTY_CATALOGUE, the target is empty_catalogue.
set(QUAVERLY_EMPTY_CATALOGUE ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/QVdata.mdb)

function(quaverly_empty_catalogue)
  add_custom_command(
    OUTPUT ${QUAVERLY_EMPTY_CATALOGUE}
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
      $<TARGET_FILE:quaverly-empty-catalogue> ${QUAVERLY_EMPTY_CATALOGUE}
    DEPENDS quaverly-empty-catalogue
    COMMENT "Making the empty catalogue"
    VERBATIM)
  add_custom_target(empty_catalogue ALL DEPENDS ${QUAVERLY_EMPTY_CATALOGUE})
endfunction()
