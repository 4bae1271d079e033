#include "logfile/format/file_header.h"

#include "logfile/os/os_clock.h"
#include "zantlog/log_file.h"
#include "zantlog/results.h"

namespace zantlog {

uint32_t fillHeader(LogFileHeader *header, uint32_t version, uint32_t productId, uint32_t originatorId) {
    *header = {};
    header->version = version;
    header->productId = productId;
    header->originatorId = originatorId;
    header->startTime = os::nowSeconds();
    header->tzOffset = getLocalTZOffsetFromGMT();
    return osGetHostName(header->text, sizeof header->text) == ZANTLOG_OS_OK ? ZANTLOG_OK : ZANTLOG_FAILURE;
}

uint32_t writeHeader(zantLogOsFile *file, const LogFileHeader &header) {
    char line[kHeaderLineBytes];
    size_t length = 0;
    if (!formatHeader(header, line, &length)) {
        return ZANTLOG_FAILURE;
    }
    switch (appendIfEmpty(file, line, static_cast<uint32_t>(length))) {
    case AppendOutcome::Written:
    case AppendOutcome::Skipped:
        return ZANTLOG_OK;
    case AppendOutcome::Failed:
    case AppendOutcome::DiskFull:
        break;
    }
    return ZANTLOG_FAILURE;
}

} // namespace zantlog
