// ICU's converter for the process's code page.
#pragma once

#include <memory>

#include <unicode/ucnv.h>

#include "logfile/os/os_text.h"
#include "zantlog/results.h"

namespace zantlog {

struct CloseConverter {
    void operator()(UConverter *converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

inline uint32_t resultOf(UErrorCode status) {
    if (status == U_MEMORY_ALLOCATION_ERROR) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    return U_FAILURE(status) ? ZANTLOG_FAILURE : ZANTLOG_OK;
}

// One of its own for each conversion, so that threads share nothing. The function says what becomes of what
// the code page does not have. Result codes: 0; 1 there is no such converter; 4 out of memory.
template <typename SetUp> [[nodiscard]] uint32_t openConverter(Converter *out, SetUp setUp) {
    UErrorCode status = U_ZERO_ERROR;
    out->reset(ucnv_open(os::codePageName(), &status));
    if (!U_FAILURE(status)) {
        setUp(out->get(), &status);
    }
    return resultOf(status);
}

} // namespace zantlog
