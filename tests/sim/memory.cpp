#include "tests/sim/memory.h"

namespace zantlog::sim {

Memory &memory() {
    static auto &instance = *new Memory;
    return instance;
}

} // namespace zantlog::sim
