# Makes a page of SOURCE, a text in Markdown: in FRAME, with names at its headings, and with links to the other pages.
execute_process(COMMAND ${CMARK_GFM} --unsafe --extension table ${SOURCE}
  OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)

string(REGEX MATCHALL "<h[123]>[^\n]*</h[123]>" headings "${body}")
foreach(heading IN LISTS headings)
  string(REGEX REPLACE "<[^>]*>" "" name "${heading}")
  if(NOT TITLE)
    set(TITLE "${name}")
  endif()
  # As the links to headings in Markdown name them.
  string(TOLOWER "${name}" name)
  string(REGEX REPLACE "[^a-z0-9 -]" "" name "${name}")
  string(REPLACE " " "-" name "${name}")
  string(SUBSTRING "${heading}" 0 3 start)
  string(REPLACE "${start}>" "${start} id=\"${name}\">" named "${heading}")
  string(REPLACE "${heading}" "${named}" body "${body}")
endforeach()

string(REGEX REPLACE "href=\"([a-z-]+)\\.md" "href=\"\\1.html" BODY "${body}")
configure_file(${FRAME} ${OUTPUT} @ONLY)
