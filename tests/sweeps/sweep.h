// Sweeps: a scenario is run again and again, each time with another of its calls failing, until a run meets
// no failure. docs/testing.md says how to write one and how to read a failure.
#pragma once

#include <functional>
#include <memory>

namespace zantlog::test {

// One course of events. Every run makes one anew; its three steps are run in a process of its own, check() of
// a run whose process died in that of a survivor.
class Scenario {
public:
    virtual ~Scenario() = default;

    // What is there before; undisturbed.
    virtual void prepare() {}

    // What is disturbed. Expects of every result that it is a documented one, and keeps what is to be
    // checked.
    virtual void act() = 0;

    // Undisturbed again: expects that nothing is lost or left half done, and that all works. It closes what
    // act() had to leave open, so that nothing is in use at its end.
    virtual void check() = 0;

    // Whether it says anything that the process dies in act(): what only reads leaves nothing behind.
    [[nodiscard]] virtual bool changesAnything() const { return true; }

    // Whether the process of act() has died, in it or at its end: nothing is known then of the call it died
    // in.
    bool died = false;
    // Whether a fault was met: what is done then may be incomplete.
    bool disturbed = false;
};

using MakeScenario = std::function<std::unique_ptr<Scenario>()>;

// Every failing call (once, and all from then on), every failing allocation, every short write, every size of
// room on the disk, every death.
void sweepAll(const MakeScenario &make);

template <class S> void sweep() {
    sweepAll([] { return std::make_unique<S>(); });
}

} // namespace zantlog::test
