#include "tests/sim/host.h"

namespace zantlog::sim {

Host &host() {
    static auto &instance = *new Host;
    return instance;
}

} // namespace zantlog::sim
