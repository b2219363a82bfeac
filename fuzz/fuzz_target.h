// What the fuzz targets share. A target is one source: tryInput(), which ends the program when something that
// must hold for every input does not.
#pragma once

#include <string_view>

namespace fuzz {

/// Written by the target; called by libFuzzer, and by the replay over stored inputs.
void tryInput(std::string_view input);

/// Ends the program, `property` named on standard error, unless `holds`.
void require(bool holds, const char* property);

/// Cuts the first line off `rest`, its line feed too, and returns it without. Inputs of several values hold
/// one a line, so that seeds are readable and mutations of one value leave the others alone.
std::string_view takeLine(std::string_view& rest);

/// Whether `text` is valid UTF-8: no overlong form, surrogate or code above 10FFFF. Written anew, so that it
/// shares no fault with the library behind our own decoding.
bool isUtf8(std::string_view text);

}  // namespace fuzz
