// The colours of docs/look.md by their role, and what a control's state makes of them. Build-time
// only.
#pragma once

#include "picture.h"

#include <string>

enum class State { Normal, Hover, On, Disabled };

// The state that a twin's ending stands for: "-hover", "_default", "-on", "_disable" and so on; an
// unknown ending throws.
bool isTwin(const std::string &ending);
State stateOfTwin(const std::string &ending);

// A role's colour in a state. "text", "warning" and the like are the same in every state; "edge",
// "mark", "fill" and others follow it. An unknown role throws.
Color roleColor(const std::string &role, State state);

// What an icon drawn in one colour turns to.
Color iconColor(const std::string &role, State state);
