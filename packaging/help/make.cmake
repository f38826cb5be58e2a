# Makes a page of the help, with the settings LOWDOWN, SOURCE (a page of docs/) and PAGE (what is made of it).
# What stands in quotes must come out letter for letter, so it gets no typographic ones.
execute_process(COMMAND ${LOWDOWN} --out-no-smarty -T html ${SOURCE} OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "href=\"([a-z-]+)\\.md([\"#])" "href=\"\\1.html\\2" body "${body}")
string(REGEX MATCH "<h1[^>]*>([^<]*)</h1>" heading "${body}")
set(title "${CMAKE_MATCH_1}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/page.html.in ${PAGE} @ONLY)
