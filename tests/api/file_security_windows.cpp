#include "tests/api/file_security.h"

#include <windows.h>

#include <aclapi.h>

#include <gtest/gtest.h>

namespace zantlog::test {

bool everyoneMayRead(const std::string &path) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD error = GetNamedSecurityInfoA(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                              nullptr, nullptr, &list, nullptr, &descriptor);
    EXPECT_EQ(error, DWORD{ERROR_SUCCESS}) << path;
    BYTE everyone[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof everyone;
    EXPECT_TRUE(CreateWellKnownSid(WinWorldSid, nullptr, everyone, &size));
    bool may = false;
    for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
        ACCESS_ALLOWED_ACE *entry = nullptr;
        EXPECT_TRUE(GetAce(list, i, reinterpret_cast<void **>(&entry)));
        may = may || (entry->Header.AceType == ACCESS_ALLOWED_ACE_TYPE &&
                      EqualSid(&entry->SidStart, everyone) && (entry->Mask & FILE_READ_DATA) != 0);
    }
    LocalFree(descriptor);
    return may;
}

} // namespace zantlog::test
