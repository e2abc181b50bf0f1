# cmake -D STYLE=FILE.css -D "SCRIPT=FILE.mjs;..." -D OUTPUT=FILE.cpp -P embed_page.cmake: writes the
# source that has the style and the script of the page, and their hashes as a content security policy
# names them.

cmake_minimum_required(VERSION 3.18)

# Sets `variable` to the SHA-256 of `text`, in base64.
function(hash_text text variable)
  string(SHA256 hash "${text}")
  set(alphabet "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  set(base64 "")
  # Three bytes are four characters. The 32 bytes of the hash lack one of a whole number of threes.
  string(APPEND hash "00")
  foreach(begin RANGE 0 60 6)
    string(SUBSTRING ${hash} ${begin} 6 digits)
    foreach(shift IN ITEMS 18 12 6 0)
      math(EXPR index "(0x${digits} >> ${shift}) & 63")
      string(SUBSTRING ${alphabet} ${index} 1 character)
      string(APPEND base64 ${character})
    endforeach()
  endforeach()
  string(LENGTH ${base64} length)
  math(EXPR last "${length} - 1")
  string(SUBSTRING ${base64} 0 ${last} base64)
  set(${variable} "${base64}=" PARENT_SCOPE)
endfunction()

file(READ ${STYLE} style)

# A page that needs nothing beside itself has one script: the modules, each behind those that it
# imports, become one function.
set(script "\n(() => {\n\"use strict\";\n")
foreach(module IN LISTS SCRIPT)
  file(READ ${module} text)
  string(REGEX REPLACE "\nimport [^;]*;" "" text "\n${text}")
  string(REPLACE "\nexport " "\n" text "${text}")
  string(APPEND script "${text}")
endforeach()
string(APPEND script "})();\n")

# In one function the later of two declarations would take the place of the other.
string(REGEX MATCHALL "\n(async function|function|class|const|let) [A-Za-z0-9_$]+" declarations "${script}")
set(names "")
foreach(declaration IN LISTS declarations)
  string(REGEX REPLACE ".* " "" name "${declaration}")
  if(name IN_LIST names)
    message(FATAL_ERROR "the modules of the page declare ${name} twice: their names are unique through all of them")
  endif()
  list(APPEND names ${name})
endforeach()

hash_text("${style}" style_hash)
hash_text("${script}" script_hash)
file(WRITE ${OUTPUT} "#include \"page_assets.h\"

namespace vond_html {

const std::string_view PAGE_STYLE = R\"css(${style})css\";
const std::string_view PAGE_STYLE_HASH = \"sha256-${style_hash}\";
const std::string_view PAGE_SCRIPT = R\"script(${script})script\";
const std::string_view PAGE_SCRIPT_HASH = \"sha256-${script_hash}\";

}  // namespace vond_html
")
