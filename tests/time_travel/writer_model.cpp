#include "tests/time_travel/writer_model.h"

#include <algorithm>
#include <cstdio>

namespace zantlog::test {

namespace {

constexpr int64_t kDay = 86400;
constexpr int64_t kReopenAfter = 600000; // milliseconds

std::string formatted(const char *format, auto... values) {
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::tm localTime(const sim::TimeZone &zone, int64_t time) {
    std::tm local{};
    sim::breakDownLocal(zone, time, &local);
    return local;
}

std::string dayOf(const std::tm &local) {
    return formatted("%02d%02d%02d", local.tm_year - 100, local.tm_mon + 1, local.tm_mday);
}

// Of a log set's file, whose name says its time without saying whether it is summer.
int64_t timeInName(const sim::TimeZone &zone, const std::string &date) {
    const auto number = [&date](size_t at) { return std::stoi(date.substr(at, 2)); };
    std::tm local{};
    local.tm_year = 100 + number(0);
    local.tm_mon = number(2) - 1;
    local.tm_mday = number(4);
    local.tm_hour = number(6);
    local.tm_min = number(8);
    local.tm_sec = number(10);
    return sim::composeLocal(zone, &local);
}

} // namespace

void WriterModel::use(const std::string &name, int64_t now) {
    name_ = name;
    const auto found = files_.find(name);
    isNew_ = found == files_.end();
    if (isNew_) {
        files_[name].created = now;
        files_[name].size = rules_.headerLength(now);
        mostFilesAtOnce_ = std::max(mostFilesAtOnce_, ++filesAtOnce_);
    }
    start_ = files_[name].created;
    if (rules_.logSet && !isNew_) {
        start_ = timeInName(zone_, name.substr(rules_.prefix.size(), 12));
    }
    lastReopen_ = start_ * 1000;
    plan(now);
}

bool WriterModel::openNext(int64_t now) {
    const std::tm local = localTime(zone_, now);
    if (rules_.logSet) {
        use(rules_.prefix + dayOf(local) +
                formatted("%02d%02d%02d.log", local.tm_hour, local.tm_min, local.tm_sec),
            now);
        return isNew_;
    }
    if (day_ == dayOf(local)) {
        ++daySequence_;
    } else {
        day_ = dayOf(local);
        daySequence_ = 0;
    }
    use(rules_.prefix + day_ + formatted("-%010u.log", daySequence_), now);
    return isNew_;
}

void WriterModel::open(int64_t now) {
    filesAtOnce_ = 0;
    if (files_.empty()) {
        openNext(now);
        return;
    }
    // Of the latest date and the highest number: the last one in the order of the names.
    const std::string name = files_.rbegin()->first;
    const std::string rest = name.substr(rules_.prefix.size());
    if (!rules_.logSet) {
        day_ = rest.substr(0, 6);
        daySequence_ = static_cast<uint32_t>(std::stoul(rest.substr(7, 10)));
    }
    use(name, now);
}

void WriterModel::plan(int64_t now) {
    if ((rules_.mode & 2) == 0) {
        next_ = start_ + rules_.period;
        return;
    }
    std::tm local = localTime(zone_, start_);
    local.tm_hour = static_cast<int>(rules_.timeOfDay / 3600);
    local.tm_min = static_cast<int>(rules_.timeOfDay % 3600 / 60);
    local.tm_sec = 0;
    const int64_t candidate = sim::composeLocal(zone_, &local);
    if (now < candidate) {
        next_ = candidate;
    } else if (now < start_ + kDay && candidate <= start_) {
        next_ = candidate + kDay;
    } else {
        next_ = now;
    }
}

bool WriterModel::isDue(int64_t now, uint64_t length) const {
    const bool bySize =
        (rules_.mode & 1) != 0 && (files_.at(name_).size + length) / 1024 >= rules_.maximumSizeKB;
    return bySize || ((rules_.mode & 6) != 0 && now >= next_);
}

void WriterModel::rollOver(int64_t now) {
    // A file that was there already may be due as well; one that was made here is not left again.
    while (!openNext(now) && isDue(now, 0)) {
        now += rules_.logSet ? 1 : 0; // another name takes another second
    }
}

const std::string &WriterModel::write(int64_t milliseconds, uint32_t sequence, size_t length) {
    const int64_t now = milliseconds / 1000;
    filesAtOnce_ = 0;
    if (isDue(now, length)) {
        rollOver(now);
    }
    if (lastReopen_ != 0 && milliseconds - lastReopen_ > kReopenAfter) {
        --daySequence_;
        openNext(now);
        lastReopen_ = milliseconds;
    }
    files_[name_].size += length;
    files_[name_].records.push_back(sequence);
    return name_;
}

} // namespace zantlog::test
