#!/usr/bin/env python3
"""Writes the export table of the robustness harness from the public headers.

Every `NMQ_API NmqStatus name(...)` prototype of include/nmqcc.h becomes one
descriptor: how its planes are passed, the geometry of every plane (element
size, elements per pixel, horizontal and vertical subsampling), the further
parameters it takes, and a call thunk that maps the harness's neutral argument
record onto the prototype. The name alone gives the geometry: models and
sampling from the `<Src>To<Dst>` word, element types and layouts from the
last two tokens. The thunks reach the functions through weak references, so a
function declared in a header but not yet built is skipped, not a link error.

Usage: gen_table.py <include dir> <output .inc>
"""
import os
import re
import sys

TYPES = {"8u": ("Nmq8u", 1), "8s": ("Nmq8s", 1), "16u": ("Nmq16u", 2), "16s": ("Nmq16s", 2),
         "32s": ("Nmq32s", 4), "32f": ("Nmq32f", 4), "64f": ("Nmq64f", 8), "1u": ("Nmq8u", 1)}

# Members of the sampling family whose three-plane array pointer itself is not
# tested (a null array is dereferenced by contract, so it is never passed).
ARRAY_UNCHECKED = {
    "nmqiYCrCb420ToYCbCr422_8u_P3C2R", "nmqiYCrCb420ToCbYCr422_8u_P3C2R",
    "nmqiYCbCr411ToYCbCr420_8u_P2P3R", "nmqiYCbCr411ToYCrCb420_8u_P2P3R", "nmqiYCbCr411_8u_P2P3R",
}
# Members that do not test the height: a height below 1 converts nothing and returns 0.
HEIGHT_UNCHECKED = {
    "nmqiYCbCr422ToYCbCr411_8u_P3R", "nmqiYCbCr422ToYCbCr411_8u_P3P2R", "nmqiYCbCr422ToYCbCr411_8u_C2P2R",
    "nmqiYCrCb422ToYCbCr411_8u_C2P3R", "nmqiCbYCr422ToYCbCr411_8u_C2P3R", "nmqiYCbCr411ToYCbCr422_8u_P3R",
    "nmqiYCbCr411ToYCbCr422_8u_P3C2R", "nmqiYCbCr411ToYCbCr422_8u_P2P3R", "nmqiYCbCr411ToYCbCr422_8u_P2C2R",
    "nmqiYCbCr411ToYCrCb422_8u_P3R", "nmqiYCbCr411ToYCrCb422_8u_P3C2R", "nmqiYCbCr411_8u_P3P2R",
    "nmqiYCbCr411_8u_P2P3R", "nmqiYCbCr422ToYCrCb422_8u_C2R", "nmqiYCbCr422ToYCrCb422_8u_P3C2R",
}

# Members that do not test the size at all: a width or height below 1 converts
# nothing and returns 0.
SIZE_UNCHECKED = {
    "nmqiYCoCgToRGB_8u_P3C3R", "nmqiYCoCgToBGR_16s8u_P3C3R", "nmqiYCoCgToBGR_16s8u_P3C4R",
    "nmqiYCoCgToBGR_Rev_16s8u_P3C3R", "nmqiYCoCgToBGR_Rev_16s8u_P3C4R", "nmqiSBGRToYCoCg_16s32s_C4P3R",
    "nmqiSBGRToYCoCg_Rev_16s_C3P3R", "nmqiSBGRToYCoCg_Rev_16s_C4P3R", "nmqiSBGRToYCoCg_Rev_16s32s_C4P3R",
    "nmqiYCoCgToSBGR_16s_P3C3R", "nmqiYCoCgToSBGR_Rev_16s_P3C3R", "nmqiYCoCgToSBGR_Rev_16s_P3C4R",
    "nmqiYCoCgToSBGR_Rev_32s16s_P3C3R", "nmqiYCoCgToSBGR_Rev_32s16s_P3C4R",
}

PROTO = re.compile(r"NMQ_API\s+NmqStatus\s+(\w+)\s*\(([^;]*?)\)\s*;", re.S)


def strip_comments(text):
    text = re.sub(r"/\*.*?\*/", " ", text, flags=re.S)
    return re.sub(r"//[^\n]*", " ", text)


def sampling(word):
    m = re.search(r"(1620|422|420|411)", word)
    return m.group(1) if m else "444"


def packed16(word):
    return re.search(r"(565|555|444)", word) is not None


def plane_geos(layout, samp, esz, packed):
    """(esz, cpp, xsub, ysub) per plane; cpp 0 marks a one-bit plane."""
    full = (esz, 1, 1, 1)
    if layout == "C1":
        return [(esz, 1, 1, 1)]
    if layout == "C2":
        return [(esz, 2, 1, 1)]
    if layout == "C3":
        return [(esz, 1 if packed else 3, 1, 1)]
    if layout in ("C4", "AC4"):
        return [(esz, 4, 1, 1)]
    if layout in ("P4", "AP4"):
        return [full] * 4
    if layout == "P3":
        sub = {"444": (1, 1), "422": (2, 1), "420": (2, 2), "411": (4, 1), "1620": (4, 4)}[samp]
        return [full, (esz, 1) + sub, (esz, 1) + sub]
    if layout == "P2":
        sub = {"420": (2, 2), "411": (4, 1)}.get(samp)
        if sub is None:
            return None
        return [full, (esz, 2) + sub]
    return None


def parse_name(name):
    parts = name[4:].split("_")
    if len(parts) < 3:
        return None
    layout, types, op = parts[-1], parts[-2], parts[0]
    tlist = re.findall(r"1u|8u|8s|16u|16s|32s|32f|64f", types)
    if "".join(tlist) != types or not 1 <= len(tlist) <= 2:
        return None
    st, dt = tlist[0], tlist[-1]
    if not layout.endswith("R") and layout not in ("P3", "C3P3", "P3C3"):
        return None
    lay = layout[:-1] if layout.endswith("R") else layout
    inplace = "I" in lay
    toks = re.findall(r"AC4|AP4|C1|C2|C3|C4|P2|P3|P4|I", lay)
    if "".join(toks) != lay:
        return None
    toks = [t for t in toks if t != "I"]
    if not 1 <= len(toks) <= 2:
        return None
    sl, dl = toks[0], toks[-1]
    m = re.match(r"^(.+?)To(?=[A-Z0-9])(.*)$", op)
    sw, dw = (m.group(1), m.group(2)) if m else (op, op)
    sg = plane_geos(sl, sampling(sw), TYPES[st][1], packed16(sw) and st == "16u")
    dg = plane_geos(dl, sampling(dw), TYPES[dt][1], packed16(dw) and dt == "16u")
    if dt == "1u":
        dg = [(1, 0, 1, 1)]
    if sg is None or dg is None:
        return None
    return dict(src=sg, dst=dg, inplace=inplace, steps=layout.endswith("R"))


def split_params(params):
    out = []
    for p in params.split(","):
        p = " ".join(p.split())
        if p and p != "void":
            out.append(p)
    return out


class Gen:
    def __init__(self, name, family, params):
        self.name, self.family, self.params = name, family, params
        self.pre = []       # statements before the call
        self.args = []      # call argument expressions
        self.flags = []     # parameter bits
        self.pass_ = {"src": None, "dst": None}
        self.nptr = {"src": 0, "dst": 0}
        self.rect = any("ImageRect" in p for p in params)

    def side(self, pname):
        if pname.startswith("pSrcDst") or pname.startswith("srcDst"):
            return "dst"
        return "src" if pname.lower().startswith(("psrc", "src")) else "dst"

    def one(self, p):
        toks = re.findall(r"\w+|\*|\[\d+\]", p)
        dims = [int(t[1:-1]) for t in toks if t.startswith("[")]
        toks = [t for t in toks if not t.startswith("[")]
        const = toks[0] == "const"
        star = "*" in toks
        words = [t for t in toks if t not in ("const", "*")]
        if len(words) != 2 or len(dims) > 2:
            return False
        ty, pname = words
        n1 = str(dims[0]) if dims else None
        n2 = str(dims[1]) if len(dims) > 1 else None
        if ty == "ImageSize":
            self.args.append("a.full" if (self.rect and "src" in pname.lower()) else "a.roi")
            return True
        if ty == "ImageRect":
            self.args.append("a.rect")
            self.flags.append("kRect")
            return True
        if star and ty.startswith("Nmq"):
            side = self.side(pname)
            base = "a.s" if side == "src" else "a.d"
            cty = ("const " if side == "src" and not pname.startswith("pSrcDst") else "") + ty
            if pname.startswith("pSrcDst"):
                self.pass_["src"] = "inplace"
            if n1:  # pointer array
                n = int(n1)
                v = "%s_arr" % side
                self.pre.append("%s* %s[%d] = {%s};" % (cty, v, n, ", ".join("(%s*)%s[%d]" % (cty, base, i) for i in range(n))))
                self.args.append("(a.%s_null_array ? nullptr : %s)" % (side, v))
                self.pass_[side] = ("array", n)
            else:
                k = self.nptr[side]
                self.nptr[side] += 1
                self.args.append("(%s*)%s[%d]" % (cty, base, k))
                self.pass_[side] = ("single", k + 1)
            return True
        if ty == "int" and pname.lower().endswith("step"):
            side = self.side(pname)
            arr = "a.ss" if side == "src" else "a.ds"
            if n1:
                self.args.append("const_cast<int*>(%s)" % arr)
                self.pass_[side + "_steps"] = "array"
            else:
                k = 1 if re.search(r"CbCr|CrCb", pname) else 0
                self.args.append("%s[%d]" % (arr, k))
                self.pass_[side + "_steps"] = self.pass_.get(side + "_steps") or "one"
            return True
        simple = {("int", "noise"): ("a.noise", "kNoise"), ("int", "dtype"): ("a.dtype", "kDtype"),
                  ("int", "levels"): ("a.levels", "kLevels"), ("int", "dstBitOffset"): ("a.bitoff", "kBitOff"),
                  ("Nmq32u", "noise"): ("a.noise_u", "kNoiseU"), ("Nmq32u", "seed"): ("a.seed", "kSeed"),
                  ("Nmq8u", "threshold"): ("a.threshold", "kThreshold"), ("int", "grid"): ("a.grid", "kGrid"),
                  ("Nmq32f", "vMin"): ("a.vmin", "kVRange"), ("Nmq32f", "vMax"): ("a.vmax", "kVRange")}
        if not star and (ty, pname) in simple:
            e, f = simple[(ty, pname)]
            self.args.append(e)
            self.flags.append(f)
            return True
        if not star and pname == "aval" and ty in ("Nmq8u", "Nmq16u", "Nmq16s", "Nmq32f"):
            # Integer alpha values wrap (defined), float ones convert.
            self.args.append("(%s)a.aval" % ty if ty == "Nmq32f" else "(%s)(long long)a.aval" % ty)
            self.flags.append("kAval")
            return True
        if const and ty == "Nmq32f" and pname == "twist" and n1 in ("3", "4") and n2 == "4":
            self.args.append("(a.null_matrix ? nullptr : a.tw)")
            self.flags.append("kTwist44" if n1 == "4" else "kTwist34")
            return True
        if const and pname == "coeffs" and n1 == "3" and ty in ("Nmq32f", "Nmq64f"):
            self.args.append("(a.null_matrix ? nullptr : %s)" % ("a.co" if ty == "Nmq32f" else "a.co64"))
            self.flags.append("kCoeffs")
            return True
        return False

    def build(self):
        for p in self.params:
            if not self.one(p):
                return "parameter '%s'" % p
        return None


def pass_code(g, side, geo, inplace):
    ptr = g.pass_["dst" if inplace else side]
    steps = g.pass_.get(("dst" if inplace else side) + "_steps")
    if ptr is None:
        return None
    kind, n = ptr
    if n != len(geo):
        return None
    if kind == "single" and n == 1:
        return "Pass::Single" if steps else "Pass::SingleNoStep"
    if kind == "single" and n == 2:
        return "Pass::Split2" if steps == "one" else None
    if kind == "array":
        return {"array": "Pass::ArraySteps", "one": "Pass::ArrayOneStep", None: "Pass::ArrayNoStep"}[steps]
    return None


def geo_init(geo):
    return "{%d, {%s}}" % (len(geo), ", ".join("{%d, %d, %d, %d}" % g for g in geo))


def main():
    inc, out = sys.argv[1], sys.argv[2]
    entries, skipped = [], []
    with open(os.path.join(inc, "nmqcc.h")) as f:
        header = f.read()
    # The header holds one section per family, each opened by a marker comment.
    sections = re.split(r"/\* ==== family: (\w+) ==== \*/", header)
    for family, body in zip(sections[1::2], sections[2::2]):
        text = strip_comments(body)
        for m in PROTO.finditer(text):
            name, params = m.group(1), split_params(m.group(2))
            geo = parse_name(name)
            g = Gen(name, family, params)
            why = g.build() if geo else "name"
            if not why:
                sp = "Pass::Single" if geo["inplace"] else pass_code(g, "src", geo["src"], False)
                dp = pass_code(g, "dst", geo["dst"], geo["inplace"])
                if geo["inplace"]:
                    geo["src"] = geo["dst"]
                    sp = dp
                if sp is None or dp is None:
                    why = "plane passing"
                elif geo["steps"] != ("NoStep" not in sp + dp):
                    why = "steps"
            if why:
                skipped.append((name, why))
                continue
            entries.append((name, family, g, geo, sp, dp))
    entries.sort(key=lambda e: e[0])
    with open(out + ".tmp", "w") as f:
        f.write("// Generated by fuzz/gen_table.py from include/nmqcc.h. Do not edit.\n")
        for e in entries:
            f.write("#pragma weak %s\n" % e[0])
        f.write("\nnamespace nmqf {\nnamespace {\n")
        for i, (name, family, g, geo, sp, dp) in enumerate(entries):
            f.write("NmqStatus call_%d(const Args& a) {\n" % i)
            for s in g.pre:
                f.write("    %s\n" % s)
            f.write("    return %s(%s);\n}\n" % (name, ", ".join(g.args)))
        f.write("}  // namespace\n\nconst Export kExports[] = {\n")
        for i, (name, family, g, geo, sp, dp) in enumerate(entries):
            flags = " | ".join(sorted(set(g.flags))) or "0"
            extra = []
            if name in ARRAY_UNCHECKED:
                extra.append("kArrayUnchecked")
            if name in HEIGHT_UNCHECKED:
                extra.append("kHeightUnchecked")
            if name in SIZE_UNCHECKED:
                extra.append("kSizeUnchecked")
            if geo["inplace"]:
                extra.append("kInPlace")
            f.write('    {"%s", "%s", reinterpret_cast<const void*>(&%s), call_%d, %s, %s, %s, %s, %s, %s},\n'
                    % (name, family, name, i, sp, geo_init(geo["src"]), dp, geo_init(geo["dst"]),
                       flags, " | ".join(extra) or "0"))
        f.write("};\nconst int kExportCount = %d;\n" % len(entries))
        f.write("const char* const kSkipped[] = {%s};\n" % ", ".join('"%s (%s)"' % s for s in skipped) if skipped
                else "const char* const kSkipped[] = {nullptr};\n")
        f.write("const int kSkippedCount = %d;\n}  // namespace nmqf\n" % len(skipped))
    os.replace(out + ".tmp", out)
    for name, why in skipped:
        print("gen_table: %s not in the table (%s)" % (name, why), file=sys.stderr)


if __name__ == "__main__":
    main()
