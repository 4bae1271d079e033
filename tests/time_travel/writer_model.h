// Which log file a message goes to, told by the rules alone: a plain counterpart of the writer, without
// files.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/sim/time_zone.h"

namespace zantlog::test {

struct WriterRules {
    uint32_t mode = 0; // 1 size, 2 time of day, 4 period; sums of them
    uint32_t maximumSizeKB = 0;
    int64_t timeOfDay = 0; // seconds after midnight
    int64_t period = 0;    // seconds
    bool logSet = false;
    std::string prefix = {};                              // of every name: all before the date
    std::function<size_t(int64_t now)> headerLength = {}; // of a file that is begun then
};

class WriterModel {
public:
    WriterModel(const WriterRules &rules, const sim::TimeZone &zone) : rules_(rules), zone_(zone) {}

    struct File {
        int64_t created = 0;
        uint64_t size = 0;
        std::vector<uint32_t> records;
    };

    // A handle is opened at this second.
    void open(int64_t now);
    // A record of this length is written at this millisecond; the answer is the name of its file.
    const std::string &write(int64_t milliseconds, uint32_t sequence, size_t length);

    [[nodiscard]] const std::map<std::string, File> &files() const { return files_; }
    // How many files were begun by one message, at most.
    [[nodiscard]] int mostFilesAtOnce() const { return mostFilesAtOnce_; }

private:
    // False when the file is there already.
    bool openNext(int64_t now);
    void use(const std::string &name, int64_t now);
    void plan(int64_t now);
    [[nodiscard]] bool isDue(int64_t now, uint64_t length) const;
    void rollOver(int64_t now);

    WriterRules rules_;
    sim::TimeZone zone_;
    std::map<std::string, File> files_;
    std::string name_;
    std::string day_; // "yymmdd" of the current file
    uint32_t daySequence_ = 0;
    int64_t start_ = 0;
    int64_t lastReopen_ = 0; // milliseconds
    int64_t next_ = 0;
    bool isNew_ = false;
    int filesAtOnce_ = 0;
    int mostFilesAtOnce_ = 0;
};

} // namespace zantlog::test
