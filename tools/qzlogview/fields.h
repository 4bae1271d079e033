// The fields of a record by their names.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/qzlogview/file_set.h"
#include "tools/qzlogview/record.h"
#include "tools/qzlogview/time_text.h"

namespace zantlog::view {

// How records are shown: times in a zone, ids with their names. Both are looked up once.
class Look {
public:
    Look(const Zone &zone, const Configurations *names) : formatter_(zone), names_(names) {}

    void appendTime(const Record &record, std::string *out) {
        formatter_.append(static_cast<int64_t>(record.fields.timestamp), out);
    }
    // The name, or the id where there is none.
    const std::string &product(uint32_t id);
    const std::string &originator(uint32_t product, uint32_t id);

private:
    TimeFormatter formatter_;
    const Configurations *names_; // may be null
    std::map<uint32_t, std::string> products_;
    std::map<std::pair<uint32_t, uint32_t>, std::string> originators_;
};

struct Field {
    const char *name;
    bool isNumber;
    // Appends the value as it is, nothing where the record has none.
    void (*append)(const Record &record, Look *look, std::string *out);
};

// All but "args", which has a form of its own in every output; in the order in which they are shown.
std::span<const Field> fields();
const Field *findField(std::string_view name);

inline constexpr std::string_view kArgumentsField = "args";

// "[5, "C:", [1]]", texts shown safely; nothing without arguments.
void appendArguments(const Record &record, std::string *out);

} // namespace zantlog::view
