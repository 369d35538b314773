#include <zrstyleoption>

namespace
{

constexpr std::int8_t code(ZrVisualState state)
{
    return std::int8_t(zrIndex(state));
}

constexpr std::int8_t Normal = code(ZrVisualState::Normal);
constexpr std::int8_t Hover = code(ZrVisualState::Hover);
constexpr std::int8_t Focus = code(ZrVisualState::Focus);
constexpr std::int8_t Disabled = code(ZrVisualState::Disabled);
constexpr std::int8_t On = code(ZrVisualState::On);
constexpr std::int8_t HoverOn = code(ZrVisualState::HoverOn);
constexpr std::int8_t FocusOn = code(ZrVisualState::FocusOn);

struct Chain {
    std::int8_t states[4];
    std::int8_t count;
};

// By the flags of a control that is not disabled.
constexpr Chain Chains[] = {
    {{Normal}, 1},                     // nothing
    {{Hover, Normal}, 2},              // Hovered
    {{Focus, Normal}, 2},              // Focused
    {{Hover, Focus, Normal}, 3},       // Hovered, Focused
    {{On, Normal}, 2},                 // On
    {{HoverOn, Hover, On, Normal}, 4}, // On, Hovered
    {{FocusOn, Focus, On, Normal}, 4}, // On, Focused
    {{HoverOn, Hover, On, Normal}, 4}, // On, Hovered, Focused
};
constexpr Chain DisabledChain = {{Disabled, Normal}, 2};

} // namespace

ZrStateChain::ZrStateChain(int flags)
{
    const Chain &chain = flags & Disabled ? DisabledChain : Chains[flags >> 1 & 7];
    states_ = chain.states;
    count_ = chain.count;
}
