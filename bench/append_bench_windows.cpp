// What one application message costs from the entry point to the file, against the bare sequence of system
// calls that an append under a named mutex cannot do without. Both take turns in one run.
//
//   append_bench             one thread, size rollover off and on, four threads, four processes
//   append_bench --child N   logs N messages (used for the four processes)
#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <thread>

#include "bench/timing.h"
#include "zantlog/zantlog.h"

namespace {

constexpr uint32_t kProduct = 12;
constexpr uint32_t kPlain = 3;    // originator whose file does not roll over
constexpr uint32_t kRollover = 4; // originator with size rollover on
constexpr uint32_t kWorkers = 4;
constexpr uint32_t kMessagesAWorker = 5000;

std::string directory;

[[noreturn]] void fail(const char *what, unsigned long code) {
    std::fprintf(stderr, "append_bench: %s failed: %lu\n", what, code);
    std::exit(1);
}

void writeFile(const std::string &path, const std::string &text) {
    FILE *file = std::fopen(path.c_str(), "w");
    if (file == nullptr)
        fail(path.c_str(), GetLastError());
    std::fputs(text.c_str(), file);
    std::fclose(file);
}

// A store of two originators below a directory of its own; child processes find it through the environment.
void makeStore() {
    char temporary[MAX_PATH];
    GetTempPathA(MAX_PATH, temporary);
    directory = temporary + ("zantlog-bench-" + std::to_string(GetCurrentProcessId())) + "\\";
    CreateDirectoryA(directory.c_str(), nullptr);
    const std::string product = directory + "product.conf";
    const std::string location = directory + "products.conf";
    writeFile(location, "12.Configuration=" + product + "\n12.Names=bench\n");
    writeFile(product, "Default.LogDirectory=" + directory +
                           "logs\n4.RolloverMode=FileSize\n4.MaxLogFileSizeKB=1048576\n");
    SetEnvironmentVariableA("ZANTLOG_CFG_LOC", location.c_str());
}

struct Handle {
    zantLogHandle handle{};
    explicit Handle(uint32_t originator) {
        const uint32_t result = zantLogOpen(kProduct, originator, &handle);
        if (result != 0)
            fail("zantLogOpen", result);
    }
    ~Handle() { zantLogClose(&handle); }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;

    void log(uint32_t calls) {
        for (uint32_t call = 0; call < calls; ++call) {
            const uint32_t result = zantLogAppMsg(&handle, 0, 1, 4711, "%u of %s", 5U, "C:");
            if (result != 0)
                fail("zantLogAppMsg", result);
        }
    }
};

// The system calls alone, on a file and a mutex of the same kind.
class BareAppend {
public:
    BareAppend() {
        const std::string path = directory + "logs\\bare.log";
        mutex_ = CreateMutexA(nullptr, FALSE, "zantlog-bench-bare");
        file_ = CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file_ == INVALID_HANDLE_VALUE)
            fail("bare open", GetLastError());
    }
    ~BareAppend() {
        CloseHandle(file_);
        CloseHandle(mutex_);
    }
    BareAppend(const BareAppend &) = delete;
    BareAppend &operator=(const BareAppend &) = delete;

    void append(uint32_t calls) {
        static constexpr char kLine[] = "2,12,3,3,57,1763249000123,4242,777,0:,0:,0:,1,(2|u32:5|S2:C:|)\n";
        for (uint32_t call = 0; call < calls; ++call) {
            WaitForSingleObject(mutex_, INFINITE);
            SetFilePointer(file_, 0, nullptr, FILE_END);
            DWORD written = 0;
            if (!WriteFile(file_, kLine, sizeof kLine - 1, &written, nullptr))
                fail("bare write", GetLastError());
            SYSTEMTIME now;
            GetSystemTime(&now);
            FILETIME stamp;
            SystemTimeToFileTime(&now, &stamp);
            SetFileTime(file_, nullptr, nullptr, &stamp);
            ReleaseMutex(mutex_);
        }
    }

private:
    HANDLE mutex_;
    HANDLE file_;
};

double microsecondsEach(std::chrono::steady_clock::time_point start, uint32_t messages) {
    const std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
    return spent.count() / messages;
}

double fourThreads() {
    std::vector<std::thread> threads;
    const auto start = std::chrono::steady_clock::now();
    for (uint32_t worker = 0; worker < kWorkers; ++worker) {
        threads.emplace_back([] {
            Handle handle(kPlain);
            handle.log(kMessagesAWorker);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    return microsecondsEach(start, kWorkers * kMessagesAWorker);
}

// Children wait for the event after they have opened their logs, so that process starts are not measured.
double fourProcesses() {
    HANDLE go = CreateEventA(nullptr, TRUE, FALSE, "zantlog-bench-go");
    HANDLE ready = CreateSemaphoreA(nullptr, 0, kWorkers, "zantlog-bench-ready");
    char self[MAX_PATH];
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    HANDLE children[kWorkers];
    for (HANDLE &child : children) {
        std::string command = std::string(self) + " --child " + std::to_string(kMessagesAWorker);
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process;
        if (!CreateProcessA(self, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process)) {
            fail("child", GetLastError());
        }
        CloseHandle(process.hThread);
        child = process.hProcess;
    }
    for (uint32_t worker = 0; worker < kWorkers; ++worker)
        WaitForSingleObject(ready, INFINITE);
    const auto start = std::chrono::steady_clock::now();
    SetEvent(go);
    WaitForMultipleObjects(kWorkers, children, TRUE, INFINITE);
    const double each = microsecondsEach(start, kWorkers * kMessagesAWorker);
    for (HANDLE child : children) {
        DWORD code = 1;
        GetExitCodeProcess(child, &code);
        if (code != 0)
            fail("a child", code);
        CloseHandle(child);
    }
    CloseHandle(ready);
    CloseHandle(go);
    return each;
}

int runChild(uint32_t messages) {
    HANDLE go = OpenEventA(SYNCHRONIZE, FALSE, "zantlog-bench-go");
    HANDLE ready = OpenSemaphoreA(SEMAPHORE_MODIFY_STATE, FALSE, "zantlog-bench-ready");
    Handle handle(kPlain);
    ReleaseSemaphore(ready, 1, nullptr);
    WaitForSingleObject(go, INFINITE);
    handle.log(messages);
    return 0;
}

void removeDirectory(const std::string &path) {
    WIN32_FIND_DATAA found;
    HANDLE find = FindFirstFileA((path + "*").c_str(), &found);
    if (find != INVALID_HANDLE_VALUE) {
        do
            DeleteFileA((path + found.cFileName).c_str());
        while (FindNextFileA(find, &found));
        FindClose(find);
    }
    RemoveDirectoryA(path.c_str());
}

void measureOneThread(double *single) {
    Handle plain(kPlain);
    Handle rollover(kRollover);
    BareAppend bare;
    std::vector<bench::Contender> contenders;
    contenders.emplace_back("bare system calls", [&](uint32_t calls) { bare.append(calls); });
    contenders.emplace_back("zantLogAppMsg, two arguments", [&](uint32_t calls) { plain.log(calls); });
    contenders.emplace_back("the same with size rollover on", [&](uint32_t calls) { rollover.log(calls); });
    bench::race(contenders, 101, 200);
    bench::print("one thread", contenders);
    *single = contenders[1].medianNanoseconds() / 1000;
}

} // namespace

int main(int argc, char **argv) {
    if (argc == 3 && std::strcmp(argv[1], "--child") == 0) {
        return runChild(static_cast<uint32_t>(std::strtoul(argv[2], nullptr, 10)));
    }
    makeStore();
    double single = 0;
    measureOneThread(&single);
    const double threads = fourThreads();
    const double processes = fourProcesses();
    std::printf("against one thread (%.1f us a message)\n", single);
    std::printf("  %-44s %10.1f us  %5.2f x\n", "four threads", threads, threads / single);
    std::printf("  %-44s %10.1f us  %5.2f x\n", "four processes", processes, processes / single);
    removeDirectory(directory + "logs\\");
    removeDirectory(directory);
    return 0;
}
