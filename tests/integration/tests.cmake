# Each script here runs on the real binary and must print exactly its .expected
# file; a script named *.stdin.qcmd is piped into standard input on the real clock.
file(GLOB QUINTARA_INTEGRATION_SCRIPTS CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.qcmd)
foreach(script ${QUINTARA_INTEGRATION_SCRIPTS})
  get_filename_component(name ${script} NAME)
  string(REGEX REPLACE "\\.qcmd$" "" name ${name})
  set(mode script)
  if(name MATCHES "\\.stdin$")
    set(mode stdin)
  endif()
  add_test(NAME integration.${name}
           COMMAND ${CMAKE_CURRENT_LIST_DIR}/run_script.sh $<TARGET_FILE:quintara> ${script}
                   ${CMAKE_CURRENT_LIST_DIR}/${name}.expected ${mode})
endforeach()

# Output through OLA: a private olad on loopback, the console on interface 10,
# the universe read back through the OLA client.
add_test(NAME integration.ola_output
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/ola_output.sh $<TARGET_FILE:quintara> $<TARGET_FILE:ola_readback>)
set_tests_properties(integration.ola_output PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 120)

# A 100 MB line, a 5000-digit number and points that are no numbers, as a
# script and on standard input: one short error each, and the run goes on.
add_test(NAME integration.long_lines
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/long_lines.sh $<TARGET_FILE:quintara>)
set_tests_properties(integration.long_lines PROPERTIES TIMEOUT 120)

# The players on the real clock through GStreamer, into a sink that needs no sound card.
add_test(NAME integration.players
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/players.sh $<TARGET_FILE:quintara>)
set_tests_properties(integration.players PROPERTIES TIMEOUT 120)

# A generated cue list printed by the headless console into CueList.pdf and
# read back with pdftotext: every caption and value of every cue, in order.
add_test(NAME integration.cuelist_print
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/cuelist_print.sh $<TARGET_FILE:quintara>)
set_tests_properties(integration.cuelist_print PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 120)

# --help and --version without a screen; a bare start says what is missing
# in one plain line each and nothing else on standard error.
add_test(NAME integration.quiet_start
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/quiet_start.sh $<TARGET_FILE:quintara>)
set_tests_properties(integration.quiet_start PROPERTIES TIMEOUT 120)

# A DMX USB PRO (the simulator on a pty) killed while the console sends to it
# and started again on the same link: told once, and the frames come back.
add_test(NAME integration.widget_comes_back
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/widget_comes_back.sh $<TARGET_FILE:quintara>
                 $<TARGET_FILE:dmx_widget_sim>)
set_tests_properties(integration.widget_comes_back PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 60)

# The web remote in real headless chromium, driven by playwright-core from
# tests/browser: the PIN, GO on the page, the cue on the page and in the
# frame. Skipped where node, chromium or playwright-core is missing.
add_test(NAME integration.web_remote
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/web_remote.sh $<TARGET_FILE:quintara>)
set_tests_properties(integration.web_remote PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 120)

# OSC on loopback: GO and a fader with oscsend, the frame read back, the
# feedback seen by oscdump, then a flood of 100,000 good and broken datagrams.
add_test(NAME integration.osc
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/osc.sh $<TARGET_FILE:quintara> $<TARGET_FILE:osc_flood>
                 ${PROJECT_SOURCE_DIR})
set_tests_properties(integration.osc PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 120)
