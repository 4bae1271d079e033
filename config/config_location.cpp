// Where the configuration lives.
#include "base/bounded_text.h"
#include "logfile/os/os_text.h"
#include "zantlog/config_store.h"

namespace {

constexpr char kLocationVariable[] = "ZANTLOG_CFG_LOC";
constexpr char kBuiltInLocation[] = "SOFTWARE\\KORVANE\\zantlog";

// The system lets an environment variable have 32767 characters.
struct Location {
    char text[32768];

    Location() {
        uint32_t length = 0;
        if (!zantlog::os::environmentVariable(kLocationVariable, text, sizeof text, &length)) {
            zantlog::copyBounded(text, sizeof text, kBuiltInLocation);
        }
    }
};

} // namespace

extern "C" const char *GetZantLogCfgLoc(void) {
    static const Location location;
    return location.text;
}
