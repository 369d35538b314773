#include "palette.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace
{

struct Role {
    const char *name;
    Color color;
};

constexpr Role Roles[] = {
    {"ground", {8, 16, 24}},    {"panel", {24, 32, 40}},     {"raised", {32, 40, 48}},
    {"lifted", {40, 56, 72}},   {"line", {56, 72, 88}},      {"firm", {96, 112, 128}},
    {"text", {232, 240, 248}},  {"dim", {160, 176, 192}},    {"off", {128, 144, 160}},
    {"accent", {56, 160, 248}}, {"deep", {24, 64, 96}},      {"light", {144, 200, 248}},
    {"good", {0, 176, 72}},     {"warning", {248, 184, 48}}, {"bad", {248, 88, 80}},
    {"white", {248, 248, 248}},
};

// Parts of a drawn control: normal, hover, on, disabled.
struct StateRole {
    const char *name;
    const char *colors[4];
};

constexpr StateRole StateRoles[] = {
    {"plate", {"raised", "deep", "deep", "panel"}},   // the ground of a button
    {"edge", {"firm", "light", "accent", "line"}},    // its border
    {"mark", {"text", "light", "light", "firm"}},     // the sign on it
    {"fill", {"accent", "light", "light", "firm"}},   // a checked part
    {"ink", {"ground", "ground", "ground", "panel"}}, // the sign on that
    {"knob", {"text", "white", "white", "off"}},      // what is dragged
};

struct Twin {
    const char *ending;
    State state;
};

constexpr Twin Twins[] = {
    {"", State::Normal},
    {"default", State::Normal},
    {"hover", State::Hover},
    {"focus", State::Hover},
    {"on", State::On},
    {"selected", State::On},
    {"disable", State::Disabled},
    {"disabled", State::Disabled},
};

const Twin *twinOf(const std::string &ending)
{
    const std::size_t first = ending.find_first_not_of("-_");
    const std::size_t last = ending.find_last_not_of("-_");
    const std::string word =
        first == std::string::npos ? "" : ending.substr(first, last - first + 1);
    const auto *found = std::find_if(std::begin(Twins), std::end(Twins),
                                     [&](const Twin &twin) { return word == twin.ending; });
    return found == std::end(Twins) ? nullptr : found;
}

} // namespace

bool isTwin(const std::string &ending)
{
    return twinOf(ending) != nullptr;
}

State stateOfTwin(const std::string &ending)
{
    if (const Twin *twin = twinOf(ending))
        return twin->state;
    throw std::invalid_argument("no state is called " + ending);
}

Color roleColor(const std::string &role, State state)
{
    for (const StateRole &row : StateRoles) {
        if (role == row.name)
            return roleColor(row.colors[int(state)], state);
    }
    for (const Role &row : Roles) {
        if (role == row.name)
            return row.color;
    }
    throw std::invalid_argument("no colour is called " + role);
}

Color iconColor(const std::string &role, State state)
{
    switch (state) {
    case State::Hover:
        return roleColor(role == "accent" ? "light" : "accent", state);
    case State::On:
        return roleColor("light", state);
    case State::Disabled:
        return roleColor("firm", state);
    case State::Normal:
        break;
    }
    return roleColor(role, state);
}
