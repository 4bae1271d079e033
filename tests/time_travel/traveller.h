// A product, or a log set of it, that logs through the years, next to the model of its writer.
#pragma once

#include <string>
#include <vector>

#include "tests/support/test_folder.h"
#include "tests/time_travel/writer_model.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

class Traveller {
public:
    Traveller(const WriterRules &rules, const sim::TimeZone &zone, int64_t start);
    ~Traveller();
    Traveller(const Traveller &) = delete;
    Traveller &operator=(const Traveller &) = delete;

    // Logs a message at this second, and expects it at the end of the file that the model names.
    void logAt(int64_t now);
    void log();

    // Closes the handle and opens another one.
    void restart();

    // Names without their prefix, in ascending order.
    [[nodiscard]] std::vector<std::string> files() const;
    // The files are those of the model: no other, each with one header and its records, in order.
    void expectFilesOfModel() const;

    [[nodiscard]] const WriterModel &model() const { return model_; }

private:
    void openLog();
    [[nodiscard]] size_t headerLength(int64_t now) const;
    [[nodiscard]] std::string nextLine(const std::string &text);

    ScopedFolder folder_;
    sim::TimeZone zone_;
    WriterRules rules_;
    WriterModel model_;
    zantLogHandle handle_{};
    uint32_t sequence_ = 0;
};

// "2028-02-29 23:59:59" as UTC.
int64_t utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

} // namespace zantlog::test
