// The LUV, Lab and YCC exports behind one calling convention, sample access
// by type, and a double-precision reference written from the textbook
// formulas (CIE 1976 L*a*b* and L*u*v*, photographic YCC).
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "nmqcc.h"

namespace lvt {

enum class Model { Lab, Luv, Ycc };
enum class Ty { U8, U16, S16, F32 };

using Fn = NmqStatus (*)(const void*, int, void*, int, ImageSize);

struct Export {
    const char* name;
    Model model;
    Ty ty;
    int stride;  // 3 or 4 samples per pixel
    bool fwd;    // RGB to the model
    bool bgr;    // the RGB side is in B, G, R order
    Fn fn;
    int elem() const { return ty == Ty::U8 ? 1 : ty == Ty::F32 ? 4 : 2; }
    int pixel_bytes() const { return elem() * stride; }
};

const std::vector<Export>& exports();
const Export& find(const char* name);

double get(Ty ty, const uint8_t* p);
void put(Ty ty, uint8_t* p, double v);

// Converts one pixel (three samples, memory order) through an export.
std::vector<double> convert1(const Export& e, const std::vector<double>& in);

// Reference: linear (or, for YCC, gamma-corrected) RGB in 0..1 to the
// model's natural values (Lab, Luv; YCC as 8-bit codes) and back.
void ref_fwd(Model m, const double rgb[3], double out[3]);
void ref_inv(Model m, const double in[3], double rgb[3]);

// The integer encodings of the model values: code = (v + add) * mul.
void encoding(Model m, Ty ty, double add[3], double mul[3]);

}  // namespace lvt
