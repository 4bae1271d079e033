// The text of a header line.
#include "base/bounded_text.h"
#include "logfile/format/file_header.h"
#include "zantlog/serialization.h"

namespace zantlog {

namespace {

// "<version>,<product>,<originator>,<start time>,"
void putIdentity(BoundedText &text, const LogFileHeader &header) {
    text.number(header.version).character(',').number(header.productId).character(',');
    text.number(header.originatorId).character(',').signedNumber(header.startTime).character(',');
}

} // namespace

bool formatHeader(const LogFileHeader &header, char (&line)[kHeaderLineBytes], size_t *length) {
    if (header.version < ZANTLOG_FORMAT_OLDEST || header.version > ZANTLOG_FORMAT_LOGSET) {
        return false;
    }
    BoundedText text(line);
    text.text(kHeaderTag).character(' ');
    switch (header.version) {
    case ZANTLOG_FORMAT_LOGSET:
        // A log set file says by its name whose it is.
        text.number(header.version).character(',').signedNumber(header.tzOffset).character(',');
        break;
    case ZANTLOG_FORMAT_PRODUCT:
        putIdentity(text, header);
        text.signedNumber(header.tzOffset).character(',');
        break;
    default:
        putIdentity(text, header);
        break;
    }
    text.text(header.text).character('\n');
    *length = text.length();
    return !text.cut();
}

} // namespace zantlog
