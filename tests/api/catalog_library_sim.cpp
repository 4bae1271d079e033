// The catalog library is linked into the native tests; the simulated system has it as a library beside the
// program too.
#include "tests/sim/modules.h"
#include "zantlog/catalog.h"

namespace {

[[maybe_unused]] const bool kOffered = [] {
    using namespace zantlog::sim;
    addModule("qzlis_3.dll", {{"zantLisFree", asFunction(zantLisFree)}});
    return true;
}();

} // namespace
