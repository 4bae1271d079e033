// Catalog files of product 12, and messages that are formatted with them.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "localizer/catalog_cache.h"
#include "localizer/resource_settings.h"
#include "tests/api/product_fixture.h"
#include "tests/support/catalog_objects.h"
#include "tests/support/files.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

inline constexpr uint32_t kShort = 0x600;
inline constexpr uint32_t kLong = 0x700;

class LocalizerTest : public ProductTest {
protected:
    LocalizerTest() {
        forget();
        setting("Default", "L10nResourceDir", folder_.path());
        setting("Default", "L10nResource", "disk");
        rec_.type = ZANTLOG_MSG_APPLICATION;
        rec_.productId = 12;
        rec_.originatorId = 3;
    }
    ~LocalizerTest() override { forget(); }

    static void forget() {
        localizer::forgetCatalogs();
        localizer::forgetSettings();
    }

    [[nodiscard]] std::string catalogPath(const std::string &locale, const std::string &name = "disk") const {
        return folder_.file(locale) + "\\" + name + ".msg";
    }
    void catalog(const std::string &locale, const std::string &text, const std::string &name = "disk") const {
        (void)makeFolder(folder_.file(locale));
        writeFileBytes(catalogPath(locale, name), text);
    }

    // The formatted message; "result N" for a failure.
    std::string format(const char *locale = "C", uint32_t flags = kShort, zantLogHandle *handle = nullptr) {
        char *text = nullptr;
        const uint32_t result = LogFormatMessage(&list_, 0, locale, 0, flags, 0, &rec_, handle, &text);
        if (result != 0) {
            EXPECT_EQ(text, nullptr);
            return "result " + std::to_string(result);
        }
        std::string formatted = text != nullptr ? text : "no text";
        zantLogFree(text);
        return formatted;
    }
    // Of a message with these arguments.
    std::string format(CatalogObject &object, const char *locale = "C") {
        rec_.lis = *object.lis();
        return format(locale);
    }
    // Of a catalog text with these arguments.
    std::string shown(const std::string &text, CatalogObject &object, const char *locale = "C") {
        forget();
        catalog("default", "1 = " + text + "\n");
        object.lis()->textId = 1;
        return format(object, locale);
    }

    ScopedFolder folder_;
    zantLogMsgRec rec_ = {};
    zantLogLocalizerList list_ = {};
};

} // namespace zantlog::test
