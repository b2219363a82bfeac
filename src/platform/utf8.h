// Telling text from bytes.
#pragma once

#include <string_view>

namespace platform {

/// Whether `bytes` are UTF-8 from first to last: no overlong form, no surrogate, nothing cut off.
bool isUtf8(std::string_view bytes);

}  // namespace platform
