# Writes OUTPUT, a source that holds the bytes of FILES (separated by |) as an EmbeddedFile of the name NAME.
string(REPLACE "|" ";" FILES "${FILES}")
set(all ${OUTPUT}.joined)
file(WRITE ${all} "")
foreach(path IN LISTS FILES)
    file(READ ${path} text)
    file(APPEND ${all} "${text}")
endforeach()

file(READ ${all} bytes HEX)
file(SHA256 ${all} sum)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," sum "${sum}")
file(WRITE ${OUTPUT} "#include \"tools/qzlogview/report/embedded_file.h\"

static const unsigned char kBytes[] = {
${bytes}};

const zantlog::view::EmbeddedFile zantlog::view::${NAME} = {
    {reinterpret_cast<const char *>(kBytes), sizeof kBytes},
    {${sum}},
};
")
