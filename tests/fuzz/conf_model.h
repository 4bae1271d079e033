// What a ".conf" file holds and how it changes, told in strings: the plain counterpart of the file store.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zantlog::fuzz {

class ConfModel {
public:
    ConfModel(std::string bytes, std::string root) : bytes_(std::move(bytes)), root_(std::move(root)) {}

    [[nodiscard]] const std::string &bytes() const { return bytes_; }

    // The value as it is found, cut at `capacity` - 1 bytes.
    [[nodiscard]] std::optional<std::string> find(const std::string &name, size_t capacity) const;
    void set(const std::string &name, const std::string &value);
    // Whether a line went.
    bool remove(const std::string &name);
    bool removeRoot(const std::string &root);

    // All names that an enumeration comes to, one for each line that has one.
    [[nodiscard]] std::vector<std::string> roots() const;
    [[nodiscard]] std::vector<std::string> logSets() const;

private:
    [[nodiscard]] std::vector<std::string> lines() const;
    [[nodiscard]] std::string keyOf(const std::string &name) const;
    void replace(const std::string &text);

    std::string bytes_;
    std::string root_;
};

} // namespace zantlog::fuzz
