// Event texts as Windows' event viewer makes them: a message table's text with the event's strings in it.
#include <windows.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr DWORD kEnglish = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
constexpr DWORD kGerman = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);

// Of the library beside the test; "none" when it has no such text.
std::wstring eventText(const char *library, DWORD id, DWORD language,
                       const std::vector<const wchar_t *> &strings) {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string self = path;
    const std::string beside = self.substr(0, self.find_last_of('\\') + 1) + library;
    const HMODULE module = LoadLibraryExA(beside.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    EXPECT_NE(module, nullptr) << beside;
    std::vector<DWORD_PTR> arguments;
    for (const wchar_t *string : strings) {
        arguments.push_back(reinterpret_cast<DWORD_PTR>(string));
    }
    wchar_t *text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_ARGUMENT_ARRAY, module,
        id, language, reinterpret_cast<wchar_t *>(&text), 0, reinterpret_cast<va_list *>(arguments.data()));
    const std::wstring formatted = length > 0 ? std::wstring(text, length) : L"none";
    LocalFree(text);
    FreeLibrary(module);
    return formatted;
}

} // namespace

TEST(MessageTable, EventsOfTextsAreTheirString) {
    EXPECT_EQ(eventText("zantlogmsg_3.dll", 0, kEnglish, {L"disk C: is full \x4F60 %1"}),
              L"disk C: is full \x4F60 %1\r\n");
    EXPECT_EQ(eventText("zantlogmsg_3.dll", 0, kEnglish, {L""}), L"\r\n");
}

TEST(MessageTable, HasNoOtherTexts) {
    EXPECT_EQ(eventText("zantlogmsg_3.dll", 1, kEnglish, {L"x"}), L"none");
}

TEST(MessageTable, ProductsOwnTableHasTheTextsOfItsCatalog) {
    EXPECT_EQ(eventText("disk_events.dll", 4711, kEnglish, {L"C:", L"93"}), L"disk C: is 93 % full\r\n");
    EXPECT_EQ(eventText("disk_events.dll", 4711, kGerman, {L"C:", L"93"}), L"Platte C: ist zu 93 % voll\r\n");
    EXPECT_EQ(eventText("disk_events.dll", 0, kEnglish, {L"x"}), L"none");
}
