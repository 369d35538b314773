// The parameters of the simulated App: a current record and a factory default for each kind.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

class ParamStore
{
public:
    using Record = std::vector<uint8_t>;

    // Every kind at its size, zeroed.
    ParamStore();

    // Empty for a number that is no kind.
    const Record &current(uint32_t kind) const { return find(current_, kind); }
    const Record &factoryDefault(uint32_t kind) const { return find(default_, kind); }
    // The record to fill, grown or cut to nothing: its size is that of the kind.
    Record &edit(uint32_t kind) { return current_[kind]; }
    // What stands now becomes the factory default.
    void freezeDefaults() { default_ = current_; }
    // Stores what was written: cut to the kind's size, or over its beginning. False for no kind.
    bool store(uint32_t kind, const uint8_t *record, size_t size);

private:
    using Records = std::map<uint32_t, Record>;
    static const Record &find(const Records &records, uint32_t kind);

    Records current_;
    Records default_;
};
