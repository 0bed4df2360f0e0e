// Images in memory and the picture files nmqconv reads and writes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace conv {

// A failure the user caused: bad option, unknown format, refusing to
// overwrite the input. Exit status 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
// A failure of the data: unreadable or truncated file, size mismatch, a
// library error. Exit status 1.
struct DataError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

enum class Depth { U8, U16, F32 };
inline int depth_bytes(Depth d) { return d == Depth::U8 ? 1 : d == Depth::U16 ? 2 : 4; }
const char* depth_name(Depth d);

// An interleaved image with contiguous rows: 1 (gray) or 3 (colour)
// channels; 16-bit samples in host order, floats as 32-bit IEEE.
struct Image {
    int w = 0, h = 0, ch = 3;
    Depth depth = Depth::U8;
    std::vector<uint8_t> px;
    Image() = default;
    Image(int w_, int h_, int ch_, Depth d) : w(w_), h(h_), ch(ch_), depth(d), px(size_t(w_) * h_ * ch_ * depth_bytes(d)) {}
    int step() const { return w * ch * depth_bytes(depth); }
    uint8_t* row(int y) { return px.data() + size_t(y) * step(); }
    const uint8_t* row(int y) const { return px.data() + size_t(y) * step(); }
    template <class T> T* data() { return reinterpret_cast<T*>(px.data()); }
    template <class T> const T* data() const { return reinterpret_cast<const T*>(px.data()); }
};

// A rectangle of an image: what the library is handed (first pixel, step).
struct View {
    const uint8_t* p = nullptr;
    int step = 0, w = 0, h = 0, ch = 3;
    Depth depth = Depth::U8;
    template <class T> const T* data() const { return reinterpret_cast<const T*>(p); }
};
View view_of(const Image& img);
View crop(const View& v, int x, int y, int w, int h);
Image copy_of(const View& v);  // contiguous copy of a view

// Picture file kinds, told from the first bytes of a file (reading) or
// from the file name's extension (writing).
enum class FileKind { None, Png, Pnm, Jpeg, Pfm };
FileKind kind_from_magic(const uint8_t* b, size_t n);
FileKind kind_from_extension(const std::string& path);

// Reads a picture file of any kind above; throws DataError with a message
// naming the file on anything unreadable, truncated or unsupported.
Image read_picture(const std::string& path, const std::vector<uint8_t>& bytes);

// Writes `img` to f in the kind given; `ext` tells PPM from PGM. Throws on
// failure. PNG and PNM take 8 or 16 bits, PFM floats, JPEG 8 bits.
void write_picture(FILE* f, FileKind kind, const Image& img, const std::string& path);

std::vector<uint8_t> read_file(const std::string& path);

}  // namespace conv
