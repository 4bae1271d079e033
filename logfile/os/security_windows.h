// Security attributes out of a descriptor text.
#pragma once

#include <windows.h>

namespace zantlog::os {

// Not inheritable. A null text, or one that does not parse, stands for the default security: get() is then
// null.
class SecurityFromText {
public:
    explicit SecurityFromText(const char *sddl);
    ~SecurityFromText();
    SecurityFromText(const SecurityFromText &) = delete;
    SecurityFromText &operator=(const SecurityFromText &) = delete;

    [[nodiscard]] SECURITY_ATTRIBUTES *get() {
        return attributes_.lpSecurityDescriptor != nullptr ? &attributes_ : nullptr;
    }

private:
    SECURITY_ATTRIBUTES attributes_{};
};

} // namespace zantlog::os
