# Fails unless PAGE shows the whole of SOURCE, word for word, as a block of C.
file(READ ${PAGE} page)
file(READ ${SOURCE} source)
string(FIND "${page}" "```c\n${source}```" place)
if(place EQUAL -1)
  message(FATAL_ERROR "${PAGE} does not show ${SOURCE} as it is")
endif()
