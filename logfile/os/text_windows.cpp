// Texts in the code pages of the process.
#include "logfile/os/os_text.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <mbstring.h>

#include <windows.h>

namespace zantlog::os {

namespace {

struct CodePageName {
    char text[24];
};

CodePageName processCodePageName() {
    CodePageName name{};
    const UINT codePage = GetACP();
    if (codePage == CP_UTF8) {
        std::strcpy(name.text, "UTF-8");
    } else {
        _snprintf(name.text, sizeof(name.text) - 1, "windows-%u", codePage);
    }
    return name;
}

} // namespace

size_t multiByteToWide(wchar_t *destination, const char *source, size_t capacity) {
    return std::mbstowcs(destination, source, capacity);
}

size_t wideToMultiByte(char *destination, const wchar_t *source, size_t capacity) {
    return std::wcstombs(destination, source, capacity);
}

size_t wideCharToMultiByte(char (&destination)[16], wchar_t character) {
    const int count = _snprintf(destination, sizeof(destination), "%lc", static_cast<wint_t>(character));
    return count < 0 ? kConversionFailed : static_cast<size_t>(count);
}

size_t wideLength(const wchar_t *text) {
    return std::wcslen(text);
}

int32_t collate(const char *left, const char *right) {
    return std::strcoll(left, right);
}

int32_t compareIgnoringCase(const char *left, const char *right) {
    return _mbsicmp(reinterpret_cast<const unsigned char *>(left),
                    reinterpret_cast<const unsigned char *>(right));
}

const char *codePageName() {
    static const CodePageName name = processCodePageName();
    return name.text;
}

const char *localeName() {
    return std::setlocale(LC_ALL, nullptr);
}

bool environmentVariable(const char *name, char *buffer, uint32_t capacity, uint32_t *length) {
    // An empty value and a missing variable both return 0; only the latter sets an error.
    SetLastError(ERROR_SUCCESS);
    const DWORD count = GetEnvironmentVariableA(name, buffer, capacity);
    if (count == 0 && GetLastError() != ERROR_SUCCESS) {
        return false;
    }
    if (count < capacity) {
        *length = count;
        return true;
    }
    // Too long: the count includes the terminator then, and the buffer holds nothing.
    *length = count - 1;
    if (capacity != 0) {
        buffer[0] = '\0';
    }
    return true;
}

} // namespace zantlog::os
