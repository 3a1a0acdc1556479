#pragma once

// The pipe by which a program tells that its first frame is in the window.
constexpr int FirstFrameDescriptor = 3;
