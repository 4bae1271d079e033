#include "logfile/writer/shared_slot.h"

namespace zantlog {

namespace {

zantLogFile *slot = nullptr;

bool sameFile(const zantLogFile &left, const zantLogFile &right) {
    return left.productId == right.productId && left.originatorId == right.originatorId;
}

} // namespace

zantLogFile *shareState(zantLogFile *state) {
    if (slot == nullptr) {
        slot = state;
    }
    return sameFile(*slot, *state) ? slot : state;
}

// Kept: the ids decide, not the address. A state of the same ids that was made while the slot was taken
// empties it for a state that is still open; the next handle then begins a new shared state.
void emptySlot(const zantLogFile &state) {
    if (slot != nullptr && sameFile(*slot, state)) {
        slot = nullptr;
    }
}

} // namespace zantlog
