#include "tests/api/localizer_library.h"

#include <filesystem>

#include "tests/support/machine.h"

namespace zantlog::test {

OfferedLocalizer::OfferedLocalizer() : searchPath_(environmentText("PATH")) {
    const std::string folder = std::filesystem::absolute(ZANTLOG_TEST_LOCALIZER_FOLDER).string();
    setEnvironment("PATH", (folder + ';' + searchPath_.value_or("")).c_str());
}

OfferedLocalizer::~OfferedLocalizer() {
    setEnvironment("PATH", searchPath_ ? searchPath_->c_str() : nullptr);
}

} // namespace zantlog::test
