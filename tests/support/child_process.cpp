#include "tests/support/child_process.h"

#include <cstdio>
#include <cstring>

namespace zantlog::test {

namespace {

constexpr char kRoleOption[] = "--child-role=";
constexpr int kUnknownRole = 127;

const ChildRole *&firstRole() {
    static const ChildRole *first = nullptr;
    return first;
}

} // namespace

ChildRole::ChildRole(const char *roleName, ChildMain roleMain)
    : name(roleName), main(roleMain), next(firstRole()) {
    firstRole() = this;
}

int runChild(const char *role, const ChildArguments &arguments, const ChildStreams &streams) {
    return ChildProcess(role, arguments, streams).wait();
}

int runRole(const char *name, const ChildArguments &arguments) {
    for (const ChildRole *role = firstRole(); role != nullptr; role = role->next) {
        if (std::strcmp(role->name, name) == 0) {
            return role->main(arguments);
        }
    }
    std::fprintf(stderr, "there is no role %s\n", name);
    return kUnknownRole;
}

bool runAsChild(int argc, char **argv, int *exitCode) {
    constexpr size_t kOptionLength = sizeof(kRoleOption) - 1;
    if (argc < 2 || std::strncmp(argv[1], kRoleOption, kOptionLength) != 0) {
        return false;
    }
    *exitCode = runRole(argv[1] + kOptionLength, ChildArguments(argv + 2, argv + argc));
    return true;
}

} // namespace zantlog::test
