// Numbers of the resources, for the resource compiler too.
#pragma once

#define ZENDOR_ICON 1
