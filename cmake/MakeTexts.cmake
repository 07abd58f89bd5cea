# Writes OUTPUT, the header with the names of all messages, from the English table TABLE.
cmake_minimum_required(VERSION 3.25)
file(READ ${TABLE} table)
# Reads only numbers and names: the texts may contain characters that are special in CMake lists.
string(REGEX MATCHALL "\n[0-9]+\t[A-Za-z0-9]+\t" lines "\n${table}")
set(header "// Made by cmake/MakeTexts.cmake from resources/messages/en.tsv.\n#pragma once\n\nnamespace tarvelo {\n\n"
           "// The messages by their names.\nenum class Text : int {\n")
foreach(line ${lines})
  string(REGEX REPLACE "\n([0-9]+)\t([A-Za-z0-9]+)\t" "  \\2 = \\1,\n" line "${line}")
  string(APPEND header "${line}")
endforeach()
string(APPEND header "};\n\n}  // namespace tarvelo\n")
string(REPLACE ";//" "//" header "${header}")
if(EXISTS ${OUTPUT})
  file(READ ${OUTPUT} before)
endif()
if(NOT "${before}" STREQUAL "${header}")
  file(WRITE ${OUTPUT} "${header}")
endif()
