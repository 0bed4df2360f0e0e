// Lab and LUV exports (RGB and BGR orders, C3 and AC4).
#include "models/luvlab_driver.h"

constexpr bool kFwd = true, kInv = false;
constexpr int kRgb = 0, kBgr = 2;

NMQ_LUVLAB_EXPORT(nmqiRGBToLab_8u_C3R, Nmq8u, Lab, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLab_16u_C3R, Nmq16u, Lab, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLab_16s_C3R, Nmq16s, Lab, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLab_32f_C3R, Nmq32f, Lab, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLabToRGB_8u_C3R, Nmq8u, Lab, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLabToRGB_16u_C3R, Nmq16u, Lab, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLabToRGB_16s_C3R, Nmq16s, Lab, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLabToRGB_32f_C3R, Nmq32f, Lab, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiBGRToLab_8u_C3R, Nmq8u, Lab, kFwd, 3, kBgr)
NMQ_LUVLAB_EXPORT(nmqiBGRToLab_16u_C3R, Nmq16u, Lab, kFwd, 3, kBgr)
NMQ_LUVLAB_EXPORT(nmqiBGRToLab_32f_C3R, Nmq32f, Lab, kFwd, 3, kBgr)
NMQ_LUVLAB_EXPORT(nmqiLabToBGR_8u_C3R, Nmq8u, Lab, kInv, 3, kBgr)
NMQ_LUVLAB_EXPORT(nmqiLabToBGR_16u_C3R, Nmq16u, Lab, kInv, 3, kBgr)
NMQ_LUVLAB_EXPORT(nmqiLabToBGR_32f_C3R, Nmq32f, Lab, kInv, 3, kBgr)

NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_8u_C3R, Nmq8u, Luv, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_8u_AC4R, Nmq8u, Luv, kFwd, 4, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_16u_C3R, Nmq16u, Luv, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_16u_AC4R, Nmq16u, Luv, kFwd, 4, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_16s_C3R, Nmq16s, Luv, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_16s_AC4R, Nmq16s, Luv, kFwd, 4, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_32f_C3R, Nmq32f, Luv, kFwd, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiRGBToLUV_32f_AC4R, Nmq32f, Luv, kFwd, 4, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_8u_C3R, Nmq8u, Luv, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_8u_AC4R, Nmq8u, Luv, kInv, 4, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_16u_C3R, Nmq16u, Luv, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_16u_AC4R, Nmq16u, Luv, kInv, 4, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_16s_C3R, Nmq16s, Luv, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_16s_AC4R, Nmq16s, Luv, kInv, 4, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_32f_C3R, Nmq32f, Luv, kInv, 3, kRgb)
NMQ_LUVLAB_EXPORT(nmqiLUVToRGB_32f_AC4R, Nmq32f, Luv, kInv, 4, kRgb)
