// Every HSV/HLS export behind one calling convention, with what the tests
// need to know about it: element size, the arrangement of each side, the
// order of its argument checks and the conversion it performs.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "nmqcc.h"

namespace hsvt {

// Pixel-order sides pass one pointer in [0]; planar sides pass the array
// (which may itself be null).
using Call = std::function<NmqStatus(const uint8_t* const* src, int srcStep, uint8_t* const* dst, int dstStep,
                                     ImageSize roi)>;

enum class Checks { PtrSize, PtrStepSize, PtrSizeStep };
enum class Conv { ToHsv, FromHsv, ToHls, FromHls };
enum class Type { u8, u16, s16, f32 };

struct Side {
    int planes;  // 1 for pixel order, else 3 or 4
    int ch;      // samples per pixel of a pixel-order side (3 or 4); 1 for planes
    bool alpha() const { return planes == 4 || ch == 4; }
};

struct Export {
    const char* name;
    Type type;
    Conv conv;
    bool bgr;           // the colour side is in B, G, R order
    Side src, dst;
    bool writes_alpha;  // the destination receives the source alpha
    Checks checks;
    Call call;

    int elem() const { return type == Type::u8 ? 1 : type == Type::f32 ? 4 : 2; }
    bool forward() const { return conv == Conv::ToHsv || conv == Conv::ToHls; }
    bool keeps_alpha() const { return dst.alpha() && !writes_alpha; }
};

const std::vector<Export>& exports();
const Export& find(const char* name);

}  // namespace hsvt
