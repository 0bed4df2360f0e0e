// Calling the library: every call goes through LIB(), which names the
// function in messages and turns an error status into a DataError.
#pragma once

#include <string>

#include "image.h"
#include "nmqcc.h"

namespace conv {

const char* status_name(NmqStatus st);

// Throws DataError on a negative status; prints each warning once.
void check(NmqStatus st, const char* function);

#define LIB(fn, ...) ::conv::check(fn(__VA_ARGS__), #fn)

inline ImageSize size_of(const View& v) { return ImageSize{v.w, v.h}; }

// Channel order swap of an 8-bit three-channel image (RGB <-> BGR): the
// library has BGR-only forms for some formats.
Image swap_rb(const View& v);

}  // namespace conv
