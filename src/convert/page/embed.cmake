# Writes the files of the page as C++ arrays: cmake -DOUT=PageFiles.cpp -DFOLDER=dir -P embed.cmake
# Also writes the hashes of the style sheet and the script, as the page's security policy names them.

# The base64 form of the SHA-256 of a file.
function(hash_of file result)
    set(digits "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
    file(SHA256 ${file} hex)
    string(APPEND hex "00") # 32 bytes are ten groups of three, and two more
    string(REGEX MATCHALL "......" groups "${hex}")
    set(text "")
    foreach(group IN LISTS groups)
        foreach(shift 18 12 6 0)
            math(EXPR index "(0x${group} >> ${shift}) & 63")
            string(SUBSTRING "${digits}" ${index} 1 digit)
            string(APPEND text "${digit}")
        endforeach()
    endforeach()
    string(SUBSTRING "${text}" 0 43 text)
    set(${result} "sha256-${text}=" PARENT_SCOPE)
endfunction()

set(arrays "")
foreach(name html css js)
    file(READ ${FOLDER}/page.${name} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${hex}")
    string(APPEND arrays "const char ${name}Bytes[] = {${bytes}};\n")
endforeach()
hash_of(${FOLDER}/page.css cssHash)
hash_of(${FOLDER}/page.js jsHash)
file(WRITE ${OUT} "// The files of the page, made from those in convert/page.
#include \"convert/page/PageFiles.h\"

namespace velorin::convert {

namespace {

${arrays}
} // namespace

const std::string_view pageTemplate{htmlBytes, sizeof htmlBytes};
const std::string_view pageStyle{cssBytes, sizeof cssBytes};
const std::string_view pageScript{jsBytes, sizeof jsBytes};
const std::string_view pageStyleHash{\"${cssHash}\"};
const std::string_view pageScriptHash{\"${jsHash}\"};

} // namespace velorin::convert
")
