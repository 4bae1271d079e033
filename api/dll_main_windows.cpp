// The DLL's own entry point.
#include <windows.h>

// Nothing is set up here: what the library needs it makes at its first use, outside the loader's lock.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(module);
    }
    return TRUE;
}
