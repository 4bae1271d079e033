// The examples of docs/conf-format.md, held against the store.
#include "tests/propstore/store_test.h"
#include "tests/support/document.h"

#include <sstream>
#include <vector>

namespace zantlog::test {
namespace {

class ConfFormatDocument : public FileStoreTest {
protected:
    ConfFormatDocument() : document(documentText("docs/conf-format.md")) {}

    // The lines between "```label" and "```".
    std::string block(const std::string &label) const {
        const std::string fence = "```" + label + "\n";
        const size_t begin = document.find(fence);
        if (begin == std::string::npos) {
            ADD_FAILURE() << "no block " << label;
            return "";
        }
        const size_t from = begin + fence.size();
        return document.substr(from, document.find("```", from) - from);
    }

    const std::string document;
};

std::string bytesOfDump(const std::string &dump) {
    std::string bytes;
    std::istringstream lines(dump);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_EQ(bytes.size(), std::stoul(line.substr(0, 4), nullptr, 16)) << line;
        std::istringstream pairs(line.substr(4, line.find('|') - 4));
        for (std::string pair; pairs >> pair;) {
            bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
        }
    }
    return bytes;
}

TEST_F(ConfFormatDocument, ExampleFileIsWhatTheStoreWrites) {
    const uint32_t level = 3;
    const uint32_t largest = 4294967295u;
    const uint32_t yes = 1;
    ASSERT_EQ(0u, CreatePropertyString(path.c_str(), "Default", store));
    EXPECT_EQ(0u, set("LogDirectory", "C:\\logs\\"));
    EXPECT_EQ(0u, utiSetPropertyAsULong(store, "DebugLevel", &level));
    open("3");
    EXPECT_EQ(0u, utiSetPropertyAsULong(store, "DynaReloadInSec", &largest));
    open("LOGSET.trade");
    EXPECT_EQ(0u, set("FileName", "caf\xe9"));
    EXPECT_EQ(0u, utiSetPropertyAsBool(store, "LogRecycle", &yes));

    const std::string bytes = bytesOfDump(block("hexdump"));
    EXPECT_EQ(bytes, readBytes(path));
    EXPECT_NE(std::string::npos, document.find("These are its " + std::to_string(bytes.size()) + " bytes"));
}

TEST_F(ConfFormatDocument, LinesReadAsTheTableSays) {
    const size_t head = document.find("| line | property | text |\n");
    ASSERT_NE(std::string::npos, head);
    std::istringstream rows(document.substr(head));
    int count = 0;
    for (std::string row; std::getline(rows, row) && !row.empty();) {
        std::vector<std::string> quoted;
        for (size_t at = row.find('`'); at != std::string::npos; at = row.find('`', at)) {
            const size_t end = row.find('`', at + 1);
            quoted.push_back(row.substr(at + 1, end - at - 1));
            at = end + 1;
        }
        if (quoted.empty()) {
            continue; // the table's head
        }
        ASSERT_LE(2u, quoted.size()) << row;
        const bool found = row.find("not found") == std::string::npos;
        const std::string expected = !found ? "(3)" : quoted.size() == 3 ? quoted[2] : "";
        EXPECT_TRUE(quoted.size() == 3 || !found || row.find("the empty text") != std::string::npos) << row;
        fileOf(quoted[0] + "\n");
        open("12");
        EXPECT_EQ(expected, text(quoted[1])) << row;
        utiClosePropertyStore(store);
        ++count;
    }
    EXPECT_EQ(12, count);
}

TEST_F(ConfFormatDocument, SetTurnsBeforeIntoAfter) {
    fileOf(block("before"));
    open("1");
    EXPECT_EQ(0u, set("B", "new"));
    expectFile(block("after"));
}

} // namespace
} // namespace zantlog::test
