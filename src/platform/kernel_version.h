// What the program runs on.
#pragma once

#include <string>

namespace platform {

/// The version of the running Linux kernel, its numbers alone: "6.1.0". Empty when it is not known.
std::string kernelVersion();

}  // namespace platform
