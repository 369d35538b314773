// Fills the application's style from "style/commonstyle.ini": what every control looks like.
#pragma once

void loadCommonStyle();
