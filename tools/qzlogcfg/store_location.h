// The configuration location and the products that are registered there.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zantlog::tools {

struct Registration {
    uint32_t product = 0;
    std::string names; // may be empty
    std::string configuration;
};

// The location of this process.
std::string currentLocation();

// Whether the environment variable names it, even with an empty text.
bool locationIsFromEnvironment();

// "file ..." or "registry path HKEY_LOCAL_MACHINE\...".
std::string locationWords(const std::string &location);

// Whether the root of that name is the entry of a product, and nothing but that.
bool isRegistration(const std::string &location, const std::string &root);

// In the order of their ids. An error says why the location cannot be read.
std::vector<Registration> registrations(const std::string &location);

// By id or by one of its names; an error says when there is none.
Registration requireProduct(const std::string &location, const std::string &idOrName);

} // namespace zantlog::tools
