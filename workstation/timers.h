#pragma once
// A named timer of the workstation: its name, owning panel, period, whether
// it runs from the start, and its tick. Each tick is a plain function of the
// subsystem that owns the work, declared in that subsystem's header; the
// table that binds them sits at the top (acquisition/tick_table.cpp), and
// tests call the ticks directly.

class Workstation;

namespace station {

struct TimerDef {
    const char* name; // unique key: the timer's name, or "panel.name" off the main screen
    const char* owner;
    int periodMs;
    bool runsFromStart;
    void (*tick)(Workstation&);
};

} // namespace station
