# cmake -D STYLE=FILE.css -D OUTPUT=FILE.cpp -P embed_style.cmake: writes the source that has the style
# and its hash, in base64 as a content security policy names it.
file(READ ${STYLE} style)
file(SHA256 ${STYLE} hash)

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

file(WRITE ${OUTPUT} "#include \"page_style.h\"

namespace vond_html {

const std::string_view PAGE_STYLE = R\"css(${style})css\";
const std::string_view PAGE_STYLE_HASH = \"sha256-${base64}=\";

}  // namespace vond_html
")
