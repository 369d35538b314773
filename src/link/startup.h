// The order in which the process comes up beside App, up to the point where the toolkit can be
// built. Main thread; each function blocks until its part is done. In this order:
//
//     readResourcePath(); lineBufferOutput(); appLinkStart(nullptr);
//     announceInterface(); configureApp(); waitForApp();
#pragma once

#include <zrstring>

// The directory of the resources, from "/tmp/resourcesPath.txt"; without that file resources are
// relative to the working directory.
void readResourcePath();
const ZrString &resourcesPath();
// A relative path under the resource directory, when there is one; others as they are. Every style
// file, image and font name goes through it.
ZrString resolveResourcePath(const ZrString &path);

void lineBufferOutput();
// Tells App that the interface is up, and waits until App is running.
void announceInterface();
// Hands App the device profile and the colour defaults. May end the process, see loadDeviceProfile.
void configureApp();
// Waits until App has finished its own start, and takes the device parameters. The framebuffer
// device is among them: framebufferNode().
void waitForApp();
