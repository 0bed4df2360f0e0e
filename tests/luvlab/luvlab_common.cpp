#include "luvlab/luvlab_common.h"

#include <algorithm>
#include <cstdlib>

namespace lvt {

#define LV_FN(name, T, model, ty, stride, fwd, bgr)                                                     \
    Export { #name, Model::model, Ty::ty, stride, fwd, bgr, [](const void* s, int ss, void* d, int dd,  \
                                                                ImageSize r) {                           \
        return name(static_cast<const T*>(s), ss, static_cast<T*>(d), dd, r); } }
// The C3 and AC4 forms of one conversion.
#define LV_2(pre, suf, T, model, ty, fwd) \
    LV_FN(pre##_##suf##_C3R, T, model, ty, 3, fwd, false), LV_FN(pre##_##suf##_AC4R, T, model, ty, 4, fwd, false)
#define LV_TYPES(pre, model, fwd)                                                             \
    LV_2(pre, 8u, Nmq8u, model, U8, fwd), LV_2(pre, 16u, Nmq16u, model, U16, fwd),           \
        LV_2(pre, 16s, Nmq16s, model, S16, fwd), LV_2(pre, 32f, Nmq32f, model, F32, fwd)

const std::vector<Export>& exports() {
    static const std::vector<Export> v = {
        LV_FN(nmqiRGBToLab_8u_C3R, Nmq8u, Lab, U8, 3, true, false), LV_FN(nmqiRGBToLab_16u_C3R, Nmq16u, Lab, U16, 3, true, false),
        LV_FN(nmqiRGBToLab_16s_C3R, Nmq16s, Lab, S16, 3, true, false), LV_FN(nmqiRGBToLab_32f_C3R, Nmq32f, Lab, F32, 3, true, false),
        LV_FN(nmqiLabToRGB_8u_C3R, Nmq8u, Lab, U8, 3, false, false), LV_FN(nmqiLabToRGB_16u_C3R, Nmq16u, Lab, U16, 3, false, false),
        LV_FN(nmqiLabToRGB_16s_C3R, Nmq16s, Lab, S16, 3, false, false), LV_FN(nmqiLabToRGB_32f_C3R, Nmq32f, Lab, F32, 3, false, false),
        LV_FN(nmqiBGRToLab_8u_C3R, Nmq8u, Lab, U8, 3, true, true), LV_FN(nmqiBGRToLab_16u_C3R, Nmq16u, Lab, U16, 3, true, true),
        LV_FN(nmqiBGRToLab_32f_C3R, Nmq32f, Lab, F32, 3, true, true), LV_FN(nmqiLabToBGR_8u_C3R, Nmq8u, Lab, U8, 3, false, true),
        LV_FN(nmqiLabToBGR_16u_C3R, Nmq16u, Lab, U16, 3, false, true), LV_FN(nmqiLabToBGR_32f_C3R, Nmq32f, Lab, F32, 3, false, true),
        LV_TYPES(nmqiRGBToLUV, Luv, true), LV_TYPES(nmqiLUVToRGB, Luv, false),
        LV_TYPES(nmqiRGBToYCC, Ycc, true), LV_TYPES(nmqiYCCToRGB, Ycc, false),
    };
    return v;
}

const Export& find(const char* name) {
    for (const Export& e : exports())
        if (std::strcmp(e.name, name) == 0) return e;
    std::abort();
}

double get(Ty ty, const uint8_t* p) {
    switch (ty) {
        case Ty::U8: return *p;
        case Ty::U16: { uint16_t v; std::memcpy(&v, p, 2); return v; }
        case Ty::S16: { int16_t v; std::memcpy(&v, p, 2); return v; }
        case Ty::F32: { float v; std::memcpy(&v, p, 4); return v; }
    }
    return 0;
}

void put(Ty ty, uint8_t* p, double v) {
    switch (ty) {
        case Ty::U8: *p = uint8_t(v); break;
        case Ty::U16: { const uint16_t u = uint16_t(v); std::memcpy(p, &u, 2); break; }
        case Ty::S16: { const int16_t u = int16_t(v); std::memcpy(p, &u, 2); break; }
        case Ty::F32: { const float u = float(v); std::memcpy(p, &u, 4); break; }
    }
}

std::vector<double> convert1(const Export& e, const std::vector<double>& in) {
    const int es = e.elem();
    std::vector<uint8_t> s(size_t(e.pixel_bytes())), d(s.size());
    for (int c = 0; c < 3; ++c) put(e.ty, &s[size_t(es * c)], in[size_t(c)]);
    if (e.fn(s.data(), int(s.size()), d.data(), int(d.size()), {1, 1}) != nmqStsOk) return {};
    return {get(e.ty, &d[0]), get(e.ty, &d[size_t(es)]), get(e.ty, &d[size_t(2 * es)])};
}

// ---- Reference ------------------------------------------------------------------
namespace {
const double kM[3][3] = {{0.412453, 0.357580, 0.180423}, {0.212671, 0.715160, 0.072169}, {0.019334, 0.119193, 0.950227}};
const double kMi[3][3] = {{3.240479, -1.537150, -0.498535}, {-0.969256, 1.875991, 0.041556}, {0.055648, -0.204043, 1.057311}};
const double kWhite[3] = {0.412453 + 0.357580 + 0.180423, 1.0, 0.019334 + 0.119193 + 0.950227};
const double kEps = 216.0 / 24389.0, kKappa = 24389.0 / 27.0;

double f(double t) { return t > kEps ? std::cbrt(t) : (kKappa * t + 16.0) / 116.0; }
double finv(double f) { return f * f * f > kEps ? f * f * f : (116.0 * f - 16.0) / kKappa; }
void uv_prime(const double xyz[3], double& u, double& v) {
    const double d = xyz[0] + 15.0 * xyz[1] + 3.0 * xyz[2];
    u = d > 0 ? 4.0 * xyz[0] / d : 0.0;
    v = d > 0 ? 9.0 * xyz[1] / d : 0.0;
}
}  // namespace

void ref_fwd(Model m, const double rgb[3], double out[3]) {
    if (m == Model::Ycc) {
        const double y = 0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2];
        out[0] = y * 255.0 / 1.402;
        out[1] = 111.40 * (rgb[2] - y) + 156.0;
        out[2] = 135.64 * (rgb[0] - y) + 137.0;
        return;
    }
    double xyz[3];
    for (int k = 0; k < 3; ++k) xyz[k] = kM[k][0] * rgb[0] + kM[k][1] * rgb[1] + kM[k][2] * rgb[2];
    const double L = 116.0 * f(xyz[1]) - 16.0;
    out[0] = L;
    if (m == Model::Lab) {
        out[1] = 500.0 * (f(xyz[0] / kWhite[0]) - f(xyz[1]));
        out[2] = 200.0 * (f(xyz[1]) - f(xyz[2] / kWhite[2]));
    } else {
        double u, v, un, vn;
        uv_prime(xyz, u, v);
        uv_prime(kWhite, un, vn);
        if (xyz[0] + 15.0 * xyz[1] + 3.0 * xyz[2] <= 0) u = un, v = vn;
        out[1] = 13.0 * L * (u - un);
        out[2] = 13.0 * L * (v - vn);
    }
}

void ref_inv(Model m, const double in[3], double rgb[3]) {
    if (m == Model::Ycc) {
        const double y = in[0] * 1.402 / 255.0, c1 = (in[1] - 156.0) / 111.40, c2 = (in[2] - 137.0) / 135.64;
        rgb[0] = y + c2;
        rgb[2] = y + c1;
        rgb[1] = (y - 0.299 * rgb[0] - 0.114 * rgb[2]) / 0.587;
        return;
    }
    const double L = in[0], fy = (L + 16.0) / 116.0;
    double xyz[3] = {0, 0, 0};
    if (m == Model::Lab) {
        xyz[0] = kWhite[0] * finv(fy + in[1] / 500.0);
        xyz[1] = finv(fy);
        xyz[2] = kWhite[2] * finv(fy - in[2] / 200.0);
    } else if (L > 0) {
        double un, vn;
        uv_prime(kWhite, un, vn);
        const double u = in[1] / (13.0 * L) + un;
        double vb, ub;
        const double blue[3] = {kM[0][2], kM[1][2], kM[2][2]};
        uv_prime(blue, ub, vb);
        const double v = std::max(in[2] / (13.0 * L) + vn, vb);  // no RGB colour has less v' than blue
        xyz[1] = finv(fy);
        xyz[0] = xyz[1] * 9.0 * u / (4.0 * v);
        xyz[2] = xyz[1] * (12.0 - 3.0 * u - 20.0 * v) / (4.0 * v);
    }
    for (int k = 0; k < 3; ++k) rgb[k] = kMi[k][0] * xyz[0] + kMi[k][1] * xyz[1] + kMi[k][2] * xyz[2];
}

void encoding(Model m, Ty ty, double add[3], double mul[3]) {
    const bool wide = ty != Ty::U8;
    switch (m) {
        case Model::Lab:
            add[0] = 0, add[1] = add[2] = 128;
            mul[0] = wide ? 65535.0 / 100 : 255.0 / 100;
            mul[1] = mul[2] = wide ? 256 : 1;
            break;
        case Model::Luv: {
            const double full = wide ? 65535 : 255;
            add[0] = 0, add[1] = 134, add[2] = 140;
            mul[0] = full / 100, mul[1] = full / 354, mul[2] = full / 262;
            break;
        }
        case Model::Ycc:
            add[0] = add[1] = add[2] = 0;
            mul[0] = mul[1] = mul[2] = wide ? 257 : 1;
            break;
    }
}

}  // namespace lvt
