#pragma once

#include "foundation/srect.h"

// The content of the window in its own coordinates; empty while there is no window.
sRect getWindowRect();
