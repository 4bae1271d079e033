#include "tests/api/product_fixture.h"

#include <cstdarg>
#include <sstream>

#include "tests/support/log_folder.h"

namespace zantlog::test {

namespace {

RecordLine parse(const std::string &line) {
    RecordLine record = {};
    std::istringstream in(line);
    char comma = 0;
    in >> record.type >> comma >> record.productId >> comma >> record.originatorId >> comma;
    in >> record.fileOriginatorId >> comma >> record.sequence >> comma >> record.timestamp >> comma;
    in >> record.processId >> comma >> record.threadId >> comma;
    EXPECT_TRUE(in.good()) << line;
    std::getline(in, record.rest);
    return record;
}

} // namespace

ProductTest::ProductTest() {
    setting("Default", "LogDirectory", logs_.path());
}

ProductTest::~ProductTest() {
    writeFileBytes(GetZantLogCfgLoc(), "");
}

void ProductTest::setting(const std::string &section, const std::string &key, const std::string &value) {
    settings_[section + '.' + key] = value;
    save();
}

void ProductTest::removeSetting(const std::string &section, const std::string &key) {
    settings_.erase(section + '.' + key);
    save();
}

void ProductTest::unregister() {
    registered_ = false;
    save();
}

void ProductTest::save() const {
    std::string product;
    for (const auto &[key, value] : settings_) {
        product.append(key).append(1, '=').append(value).append("\r\n");
    }
    const std::string path = store_.file("product.conf");
    writeFileBytes(path, product);
    writeFileBytes(GetZantLogCfgLoc(),
                   registered_ ? "12.Configuration=" + path + "\r\n12.Names=Scanner\r\n" : "");
}

std::vector<std::string> ProductTest::logNames() const {
    return fileNames(logs_.path());
}

std::vector<std::string> ProductTest::lines() const {
    std::vector<std::string> all;
    for (const std::string &name : logNames()) {
        std::vector<std::string> lines = linesOf(fileBytes(logs_.file(name)));
        EXPECT_FALSE(lines.empty()) << name;
        EXPECT_EQ(lines.front().substr(0, 8), "$Header ") << name;
        all.insert(all.end(), lines.begin() + 1, lines.end());
    }
    return all;
}

std::vector<RecordLine> ProductTest::records() const {
    std::vector<RecordLine> all;
    for (const std::string &line : lines()) {
        all.push_back(parse(line));
    }
    return all;
}

Message &Message::object(uint32_t msgid, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    EXPECT_EQ(msgid != 0 ? zantLisVEx(&lis, 0, msgid, fmt, args) : zantLisTextV(&lis, fmt, args), 0);
    va_end(args);
    return *this;
}

uint32_t logText(zantLogHandle *handle, const char *text) {
    Message message(handle, ZANTLOG_MSG_APPLICATION, text);
    EXPECT_EQ(message.initialised, 0u);
    zantLogSetAppAttrEx(&message, "", 0);
    return zantLogMsg(handle, 0, &message);
}

} // namespace zantlog::test
