#include "tools/qzlogger/check.h"

#include <iostream>

#include "tools/common/code_page.h"
#include "tools/common/exit_codes.h"
#include "tools/common/result_text.h"
#include "zantlog/zantlog.h"

namespace zantlog::tools {

namespace {

using CheckCatalog = decltype(&zantLogCheckCatalog);

// The parser is the localisation library's, which zantlog_3.dll finds by the same name.
CheckCatalog loadCheck() {
    void *library = nullptr;
    void *function = nullptr;
    if (SharedLibLoad(&library, "zantLogFormatMsg", nullptr) != ZANTLOG_OS_OK) {
        std::cerr << "qzlogger: the localisation library zantLogFormatMsg_3.dll cannot be loaded: put it "
                     "beside this program\n";
        return nullptr;
    }
    SharedLibResolveFunc(library, "zantLogCheckCatalog", &function);
    if (function == nullptr) {
        std::cerr << "qzlogger: the localisation library found has no check of catalogs: it is not the one "
                     "that comes with this program\n";
    }
    return reinterpret_cast<CheckCatalog>(function);
}

void sayDefect(void *file, uint32_t line, const char *what) {
    std::cerr << *static_cast<const std::string *>(file) << ':' << line << ": " << what << '\n';
}

bool isGood(CheckCatalog check, std::string file) {
    uint32_t defects = 0;
    const uint32_t result = check(codePageFromUtf8(file).c_str(), sayDefect, &file, &defects);
    if (result == ZANTLOG_FAILURE) {
        std::cerr << "qzlogger: cannot read \"" << file
                  << "\": it is missing, not to be opened, or longer than 8 MiB\n";
    } else if (result != ZANTLOG_OK) {
        std::cerr << "qzlogger: cannot check \"" << file << "\": " << resultText(result) << '\n';
    }
    return result == ZANTLOG_OK && defects == 0;
}

} // namespace

int checkCatalogs(const std::vector<std::string> &files) {
    const CheckCatalog check = loadCheck();
    if (check == nullptr) {
        return kExitFailure;
    }
    bool good = true;
    for (const std::string &file : files) {
        good = isGood(check, file) && good;
    }
    return good ? kExitSuccess : kExitFailure;
}

} // namespace zantlog::tools
