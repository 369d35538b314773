// A viewer's keyboard as keys and text of the panel.
#pragma once

#include <cstdint>
#include <string>

// The panel's line for a key symbol as VNC sends it; empty for keys that the panel does not know.
std::string panelLineOfKey(std::uint32_t symbol);
