#include "tests/api/localizer_library.h"

#include "tests/sim/modules.h"

// Of test_localizer.c; what it takes does not matter here.
extern "C" void LogFormatMessage();

namespace zantlog::test {

OfferedLocalizer::OfferedLocalizer() {
    sim::addModule("zantLogFormatMsg_3.dll", {{"LogFormatMessage", sim::asFunction(LogFormatMessage)}});
}

OfferedLocalizer::~OfferedLocalizer() {
    sim::removeModule("zantLogFormatMsg_3.dll");
}

} // namespace zantlog::test
