// Listings of folders: order, patterns, short names.
#include <algorithm>
#include <random>

#include "tests/sim/drives.h"

namespace zantlog::sim {

namespace {

constexpr size_t kLongestStem = 8;
constexpr size_t kLongestExtension = 3;
constexpr size_t kStemOfAShortName = 6;

struct NameParts {
    std::string stem;
    std::string extension;
};

NameParts partsOf(const std::string &name) {
    const size_t dot = name.rfind('.');
    return dot == std::string::npos ? NameParts{name, ""}
                                    : NameParts{name.substr(0, dot), name.substr(dot + 1)};
}

bool isOfTheShortForm(const NameParts &parts) {
    const bool plain = (parts.stem + parts.extension).find_first_of(" .+,;=[]") == std::string::npos;
    return plain && !parts.stem.empty() && parts.stem.size() <= kLongestStem &&
           parts.extension.size() <= kLongestExtension;
}

// Gives each longer name a short one, counting those that begin alike.
class ShortNames {
public:
    std::string of(const std::string &key) {
        const NameParts parts = partsOf(key);
        if (isOfTheShortForm(parts)) {
            return "";
        }
        const std::string stem = without(parts.stem).substr(0, kStemOfAShortName);
        const std::string extension = parts.extension.substr(0, kLongestExtension);
        const std::string tail = "~" + std::to_string(++counts_[stem + '.' + extension]);
        // As the count grows, it takes the place of the stem's letters.
        const std::string begin = stem.substr(0, kLongestStem - tail.size());
        return begin + tail + (extension.empty() ? "" : "." + extension);
    }

private:
    static std::string without(const std::string &stem) {
        std::string plain;
        for (const char character : stem) {
            plain += character == ' ' || character == '.' ? "" : std::string(1, character);
        }
        return plain;
    }

    std::map<std::string, int> counts_;
};

struct Listed {
    std::shared_ptr<Node> node;
    std::string shortName;
};

void sort(std::vector<Listed> *listed) {
    switch (drives().order) {
    case ListingOrder::ByName: // as they come
        break;
    case ListingOrder::ByNameDownwards:
        std::reverse(listed->begin(), listed->end());
        break;
    case ListingOrder::ByCreation:
        std::sort(listed->begin(), listed->end(), [](const Listed &left, const Listed &right) {
            return left.node->number < right.node->number;
        });
        break;
    case ListingOrder::Shuffled:
        std::shuffle(listed->begin(), listed->end(), std::mt19937(drives().seed));
        break;
    }
}

} // namespace

os::SystemError listingOf(const std::string &pattern, std::vector<Found> *found) {
    const std::lock_guard guard(drives().lock);
    os::SystemError error = os::kErrorNone;
    const Path place = parsed(pattern, &error, true);
    std::shared_ptr<Node> parent;
    error = error == os::kErrorNone ? findParent(place, &parent) : error;
    if (error != os::kErrorNone) {
        return error;
    }
    if (place.endsInSeparator || place.names.empty()) {
        return os::kErrorFileNotFound;
    }
    const std::string &mask = place.names.back();
    std::vector<Listed> listed;
    ShortNames shortNames;
    for (const auto &[key, child] : parent->children) {
        const std::string shortName = shortNames.of(key);
        if (matches(key, mask) || (!shortName.empty() && matches(shortName, mask))) {
            listed.push_back({child, shortName});
        }
    }
    sort(&listed);
    // Every folder but a drive's root lists itself and the one above it first.
    for (const char *dots : {".", ".."}) {
        if (place.names.size() > 1 && matches(dots, mask)) {
            found->push_back(foundOf(*parent, dots, ""));
        }
    }
    for (const Listed &entry : listed) {
        found->push_back(foundOf(*entry.node, entry.node->name, entry.shortName));
    }
    return found->empty() ? os::kErrorFileNotFound : os::kErrorNone;
}

} // namespace zantlog::sim
