// Security attributes out of a descriptor text.
#include "logfile/os/security_windows.h"

#include <sddl.h>

namespace zantlog::os {

SecurityFromText::SecurityFromText(const char *sddl) {
    if (sddl == nullptr) {
        return;
    }
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorA(sddl, SDDL_REVISION_1, &descriptor, nullptr)) {
        return;
    }
    attributes_.nLength = sizeof(attributes_);
    attributes_.lpSecurityDescriptor = descriptor;
    attributes_.bInheritHandle = FALSE;
}

SecurityFromText::~SecurityFromText() {
    if (attributes_.lpSecurityDescriptor != nullptr) {
        // What a call reported must outlive the release of its arguments.
        const DWORD error = GetLastError();
        LocalFree(attributes_.lpSecurityDescriptor);
        SetLastError(error);
    }
}

} // namespace zantlog::os
