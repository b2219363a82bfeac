#include "platform/kernel_version.h"

#include <string_view>

#include <sys/utsname.h>

namespace platform {

std::string kernelVersion() {
  utsname names = {};
  if (uname(&names) != 0) return {};
  // What follows the numbers is the distribution's: "6.1.0-18-amd64".
  const std::string_view release = names.release;
  return std::string(release.substr(0, release.find_first_not_of("0123456789.")));
}

}  // namespace platform
