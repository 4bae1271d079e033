// Records that are asked, made from lines as they stand in files.
#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>

#include "tools/qzlogview/log_file.h"
#include "tools/qzlogview/record.h"
#include "zantlog/results.h"

namespace zantlog::view {

inline Source productSource(uint32_t version = ZANTLOG_FORMAT_PRODUCT) {
    Source source;
    source.path = "C:\\logs\\12-3-1-251116-0000000000.log";
    source.header.version = version;
    source.header.productId = 12;
    source.header.originatorId = 3;
    source.header.startTime = 1763249000;
    std::snprintf(source.header.text, sizeof source.header.text, "buildhost");
    return source;
}

inline Source logSetSource() {
    Source source = productSource(ZANTLOG_FORMAT_LOGSET);
    source.path = "C:\\logs\\12-night-251116002320.log";
    source.header.originatorId = 0;
    source.header.startTime = 0;
    source.logSet = "night";
    return source;
}

inline Record recordOf(const Source &source, const std::string &line) {
    Record record;
    if (parseLine(source, line, 0, &record) != ZANTLOG_OK) {
        throw std::invalid_argument(line);
    }
    return record;
}

// One of every type.
struct SampleRecords {
    Source product = productSource();
    Source logSetFile = logSetSource();
    Source oldFile = productSource(65540);

    Record application =
        recordOf(product, "2,12,4,3,57,1763249000123,4242,777,5:token,11:Hello World,5:Trade,2,"
                          "(4|u32:5|S2:C:|(1|S5:inner|),i32:-7|)");
    Record diagnostic =
        recordOf(product, "1,12,3,3,58,1763249000124,4242,778,0:,9:disk full,7:scanner,7,(0|)");
    Record debug = recordOf(product, "0,12,3,3,4294967295,0,0,0,0:,0:,0:,-6");
    Record context = recordOf(product, "3,12,3,3,59,1763249000125,1,2,5:outer,5:title,5:token,(1|S1:x|)");
    Record audit = recordOf(product, "4,12,3,3,60,1763249000126,1,2,0:,5:login,4:mary,-1,(0|)");
    Record inLogSet = recordOf(logSetFile, "2,3,57,1763249000123,4242,777,0:,5:night,5:trade,0,(0|)");
    Record old = recordOf(oldFile, "0:,1:t,4,(0|)"); // of the version without types
};

} // namespace zantlog::view
