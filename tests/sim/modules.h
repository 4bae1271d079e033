// Libraries that can be loaded by name.
#pragma once

#include <map>
#include <string>

namespace zantlog::sim {

// Makes a library be there, or replaces it: "name.dll", which is found wherever the search path leads, or a
// full path. Functions that are not in the list are missing from it.
void addModule(const std::string &fileName, const std::map<std::string, void *> &functions);
void removeModule(const std::string &fileName);

// As a thing to give to addModule().
template <class Function> void *asFunction(Function *function) {
    return reinterpret_cast<void *>(function);
}

// ---- for the implementation of the seam
bool hasModule(const std::string &fileName);
void *functionOf(const std::string &fileName, const std::string &name);

} // namespace zantlog::sim
