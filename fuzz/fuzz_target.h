// What the fuzz targets share. A target is one source: the function below, which tries one input and ends the
// program when something that must hold for every input does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Called by libFuzzer, and by the replay over stored inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Ends the program, `property` named on standard error, unless `holds`.
void require(bool holds, const char* property);

/// The input as text; never a null pointer.
std::string_view textOf(const std::uint8_t* data, std::size_t size);

/// Cuts the first line off `rest`, its line feed too, and returns it without. Inputs of several values hold
/// one a line, so that seeds are readable and mutations of one value leave the others alone.
std::string_view takeLine(std::string_view& rest);

/// Whether `text` is valid UTF-8: no overlong form, surrogate or code above 10FFFF. Written anew, so that it
/// shares no fault with the library behind our own decoding.
bool isUtf8(std::string_view text);

}  // namespace fuzz
