// The exported formatter.
#include "base/common_lock.h"
#include "localizer/heading.h"
#include "localizer/resource_settings.h"
#include "logfile/os/os_text.h"
#include "zantlog/localizer.h"
#include "zantlog/results.h"

using namespace zantlog;
using namespace zantlog::localizer;

uint32_t LogFormatMessage(zantLogLocalizerList *list, uint32_t /*reserved1*/, const char *locale,
                          uint32_t /*reserved2*/, uint32_t flags, uint32_t /*reserved3*/, zantLogMsgRec *rec,
                          zantLogHandle *handle, char **text) {
    if (rec == nullptr || text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // The library calls with this lock held, so no lock of our own could be taken in one order with it.
    const CommonLock lock("LogFormatMessage()");
    const LocaleName name = parseLocaleName(locale != nullptr ? locale : os::localeName());
    const Resource resource = resourceOf(list, *rec, handle);
    const Catalogs catalogs = catalogsOf(name, resource.directory, resource.name);
    NativeText out;
    if ((flags & ZANTLOG_FORMAT_HEADING) != 0) {
        appendHeading(catalogs, *rec, &out);
    }
    appendMessageText(catalogs, *rec, &out);
    OwnedText formatted = out.take();
    if (!formatted) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    *text = formatted.release();
    return ZANTLOG_OK;
}
