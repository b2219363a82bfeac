#include "update/update_check.h"

namespace update {

std::string_view appcastAddress() {
  return VESKEL_APPCAST_URL;
}

}  // namespace update
