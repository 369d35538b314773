// When the start counts as over: cameras on the network need longer to come up.
#pragma once

// Milliseconds until the first start-up timer, for n IP cameras: 4000 to 15040.
int startupDelayMs(int ipCameras);
