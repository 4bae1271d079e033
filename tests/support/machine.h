// The machine that a test runs on: its environment and its clock. The native build's machine is the simulated
// one.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace zantlog::test {

// Sets an environment variable for this process, as its C runtime and its system calls see it; null removes
// it.
void setEnvironment(const char *name, const char *value);

std::optional<std::string> environmentText(const char *name);

// Seconds since 1970-01-01 00:00 UTC.
int64_t secondsNow();

// Milliseconds from some moment on.
int64_t millisecondsNow();

// The local date of now plus so many days, at noon.
std::tm localDate(int daysFromToday);

// Lets other threads and processes go on for so long.
void pauseFor(uint32_t milliseconds);

uint32_t ownProcessId();

// Puts the whole process into another time zone ("CET-1CEST"). To be called before anything asks for a local
// time, from the initialisation of a constant: Wine's runtime mixes the rules of the first zone into those of
// a later one.
bool useTimeZone(const char *zone);

// For the test main only, before anything else.
void startMachine();

} // namespace zantlog::test
