// Documents of the source tree, which tests hold against the code. They are read from the real disk in every
// build.
#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace zantlog::test {

// The bytes of a file of the tree, named from its top folder.
inline std::string documentText(const std::string &name) {
    std::ifstream file(ZANTLOG_SOURCE_FOLDER "/" + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace zantlog::test
