// Operations on decoded images, each one library call (or a few).
#pragma once

#include <string>
#include <vector>

#include "image.h"

namespace conv {

// Depth and channel changes. Narrowing goes through the library's bit
// reduction (to 256 or 65536 levels, no dither); widening is exact scaling.
Image to_depth(const View& v, Depth d);
Image to_channels(const View& v, int ch);  // gray <-> colour through the library

// Colour models, for inspection: the image's three channels hold the model's
// components (gray: one channel). `inverse` goes back to RGB.
struct Model {
    const char* name;
    const char* components;  // e.g. "h,s,v"
};
const std::vector<Model>& models();
Image model_convert(const View& v, const std::string& model, bool inverse, const float* gray_weights);

Image gamma(const View& v, bool forward);
Image twist(const View& v, const float m[3][4]);
void read_matrix(const std::string& path, float m[3][4]);
Image tonemap(const View& v, bool by_mean);
Image reduce(const View& v, int levels, int dither, int noise);

// One gray image per channel.
std::vector<Image> split_channels(const Image& img);

// "--list": every conversion and operation with the library functions it calls.
void print_operation_list(FILE* out);

}  // namespace conv
