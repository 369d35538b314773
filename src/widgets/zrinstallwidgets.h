// Plugs the widgets into the application. Call before the application is constructed.
#pragma once

void zrInstallWidgets();
