# Writes a C++ table of files: cmake -DOUT=table.cpp -DFOLDER=dir -DNAMES=a;b -P embed.cmake
set(arrays "")
set(entries "")
set(index 0)
foreach(name IN LISTS NAMES)
    file(READ ${FOLDER}/${name} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(APPEND arrays "const unsigned char sample${index}[] = {${bytes}};\n")
    string(APPEND entries "    {\"${name}\", sample${index}},\n")
    math(EXPR index "${index} + 1")
endforeach()
file(WRITE ${OUT} "// The stored samples, made from the files in resources/samples.
#include \"tutorial/Samples.h\"

namespace velorin {

namespace {

${arrays}
const Sample samples[] = {
${entries}};

} // namespace

std::span<const Sample> storedSamples() {
    return samples;
}

} // namespace velorin
")
