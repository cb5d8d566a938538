// Frame synthesis. The scene is a gradient, tinted per camera and head, with
// a bright disc whose position follows the absolute frame number. Colour
// heads see a colour scene through their Bayer filter: the mosaic is sampled
// from the scene, and converted colour is a bilinear demosaic of that mosaic,
// so the two always agree.
//
// Speed: the background of a format never changes, so it is rendered once
// (mono, mosaic, or already demosaiced) into a cached backdrop; a frame is a
// copy of it with the disc drawn over and the stamp written into the first
// bytes. Converted colour demosaics again only the pixels near the disc.
#include "camera/image.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

namespace vcam {
namespace {

constexpr uint8_t kMagic[4] = {'V', 'C', 'A', 'M'};
constexpr size_t kStampBytes = 16;
constexpr uint32_t kFull = 65535;  // scene values are on a 16-bit scale

enum Channel : uint8_t { kRed, kGreen, kBlue };

bool IsBayer(ColourLayout layout) {
    return layout >= ColourLayout::BayerRGGB && layout <= ColourLayout::BayerBGGR;
}

// The filter colour over pixel (x, y).
Channel SiteChannel(ColourLayout layout, uint32_t x, uint32_t y) {
    static constexpr Channel kCells[4][4] = {
        {kRed, kGreen, kGreen, kBlue},  // RGGB: row 0 then row 1 of a 2 x 2 cell
        {kGreen, kRed, kBlue, kGreen},  // GRBG
        {kGreen, kBlue, kRed, kGreen},  // GBRG
        {kBlue, kGreen, kGreen, kRed},  // BGGR
    };
    return kCells[uint32_t(layout) - 1][(y & 1) * 2 + (x & 1)];
}

enum class Output : uint8_t { Mono, Mosaic, Converted };

// What a format asks for, with its numbers brought into range.
struct Plan {
    uint32_t width, height;
    uint32_t bitDepth;     // 1..16
    uint32_t sampleBytes;  // 1 or 2
    uint32_t down;         // bits dropped from a bitDepth value to make a one-byte sample
    Output output;
    ColourLayout layout;

    explicit Plan(const FrameFormat& f)
        : width(f.width),
          height(f.height),
          bitDepth(std::clamp<uint32_t>(f.bitDepth, 1, 16)),
          sampleBytes(f.depth <= 8 ? 1 : 2),
          down(sampleBytes == 1 && bitDepth > 8 ? bitDepth - 8 : 0),
          output(!IsBayer(f.colour) ? Output::Mono : f.rawMosaic ? Output::Mosaic : Output::Converted),
          layout(f.colour) {}

    uint32_t PixelBytes() const { return output == Output::Converted ? 3 * sampleBytes : sampleBytes; }
    size_t Bytes() const { return size_t(width) * height * PixelBytes(); }
    // A scene value as a sample of the recorded depth.
    uint32_t Recorded(uint32_t v16) const { return v16 >> (16 - bitDepth); }
    // A recorded sample as delivered.
    uint32_t Delivered(uint32_t recorded) const { return recorded >> down; }

    void Put(uint8_t* p, uint32_t recorded) const {
        const uint32_t v = Delivered(recorded);
        p[0] = uint8_t(v);
        if (sampleBytes == 2) p[1] = uint8_t(v >> 8);
    }
    void PutBgr(uint8_t* p, const uint32_t rgb[3]) const {
        Put(p, rgb[kBlue]);
        Put(p + sampleBytes, rgb[kGreen]);
        Put(p + 2 * sampleBytes, rgb[kRed]);
    }
};

int64_t FloorMod(int64_t a, int64_t b) {
    const int64_t m = a % b;
    return m < 0 ? m + b : m;
}

// 0 up to period / 2 and back.
int64_t Triangle(int64_t n, int64_t period) {
    const int64_t m = FloorMod(n, period);
    return m < period / 2 ? m : period - m;
}

// The background: ramps across and down, between 0.2 and 0.7 of full
// scale, lifted a little per camera and head so that they differ.
class Gradient {
public:
    Gradient(const Plan& plan, uint32_t camera, uint32_t head)
        : width_(plan.width), height_(plan.height), lift_((camera * 5 + head * 3) % 11 * kFull / 110) {}

    uint32_t Mono(uint32_t x, uint32_t y) const { return Ramp(x, y, 300, 100); }
    uint32_t Colour(uint32_t x, uint32_t y, Channel c) const {
        switch (c) {
        case kRed: return Ramp(x, y, 350, 50);
        case kGreen: return Ramp(x, y, 200, 200);
        case kBlue: break;
        }
        return Ramp(x, y, 50, 350);
    }

private:
    // 0.2 of full scale plus across/1000 of it at the right edge and down/1000 at the bottom.
    uint32_t Ramp(uint32_t x, uint32_t y, uint32_t across, uint32_t down) const {
        const uint64_t u = uint64_t(x) * kFull / std::max<uint32_t>(width_ - 1, 1);
        const uint64_t v = uint64_t(y) * kFull / std::max<uint32_t>(height_ - 1, 1);
        return uint32_t((200ull * kFull + across * u + down * v) / 1000) + lift_;
    }

    uint32_t width_, height_, lift_;
};

// The moving disc: bright white on mono heads, bright red on colour heads.
struct Disc {
    static constexpr uint32_t kMono = kFull * 95 / 100;
    static constexpr uint32_t kColour[3] = {kFull * 95 / 100, kFull * 20 / 100, kFull * 10 / 100};

    int64_t cx, cy, r;

    // Bounces around the frame, by odd steps so that it never stands still.
    Disc(uint32_t width, uint32_t height, int64_t absolute) {
        r = std::max<int64_t>(1, std::min(width, height) / 12);
        const int64_t spanX = int64_t(width) - 2 * r, spanY = int64_t(height) - 2 * r;
        cx = spanX > 0 ? r + Triangle(absolute * 7, 2 * spanX) : width / 2;
        cy = spanY > 0 ? r + Triangle(absolute * 5, 2 * spanY) : height / 2;
    }

    bool Contains(int64_t x, int64_t y) const { return (x - cx) * (x - cx) + (y - cy) * (y - cy) <= r * r; }

    // The largest h with h * h + dy * dy <= r * r: row cy + dy holds cx - h .. cx + h; -1 when it misses the disc.
    int64_t HalfChord(int64_t dy) const {
        const int64_t room = r * r - dy * dy;
        if (room < 0) return -1;
        auto h = int64_t(std::sqrt(double(room)));
        while (h * h > room) --h;
        while ((h + 1) * (h + 1) <= room) ++h;
        return h;
    }
};

// A rectangle of pixels, [x0, x1) x [y0, y1).
struct Box {
    int64_t x0, y0, x1, y1;
};

// The disc's square, grown by margin pixels and cut to the frame.
Box DiscBox(const Disc& disc, int64_t margin, const Plan& plan) {
    return {std::max<int64_t>(disc.cx - disc.r - margin, 0), std::max<int64_t>(disc.cy - disc.r - margin, 0),
            std::min<int64_t>(disc.cx + disc.r + 1 + margin, plan.width),
            std::min<int64_t>(disc.cy + disc.r + 1 + margin, plan.height)};
}

// Mirrors a neighbour index that falls off the frame back into it; a mirror
// keeps the Bayer phase, so the neighbour has the colour it would have had.
uint32_t Mirror(int64_t i, uint32_t n) {
    if (i < 0) i = -i;
    if (i >= int64_t(n)) i = 2 * int64_t(n) - 2 - i;
    return uint32_t(std::clamp<int64_t>(i, 0, int64_t(n) - 1));
}

// Bilinear demosaic of one pixel: its own colour is its sample, each other
// colour the mean of the samples of that colour among its eight neighbours.
// On a Bayer filter those are the two across or the two above and below for
// a green pixel, the four beside or the four diagonal ones for red and blue.
template <class Mosaic>
void Demosaic(const Plan& plan, const Mosaic& m, uint32_t x, uint32_t y, uint32_t rgb[3]) {
    const uint32_t left = Mirror(int64_t(x) - 1, plan.width), right = Mirror(int64_t(x) + 1, plan.width);
    const uint32_t up = Mirror(int64_t(y) - 1, plan.height), down = Mirror(int64_t(y) + 1, plan.height);
    const Channel own = SiteChannel(plan.layout, x, y);
    rgb[own] = m(x, y);
    if (own == kGreen) {
        rgb[SiteChannel(plan.layout, x ^ 1, y)] = (m(left, y) + m(right, y) + 1) >> 1;
        rgb[SiteChannel(plan.layout, x, y ^ 1)] = (m(x, up) + m(x, down) + 1) >> 1;
    } else {
        rgb[kGreen] = (m(left, y) + m(right, y) + m(x, up) + m(x, down) + 2) >> 2;
        rgb[own == kRed ? kBlue : kRed] = (m(left, up) + m(right, up) + m(left, down) + m(right, down) + 2) >> 2;
    }
}

// The mosaic the sensor records of the scene, with the disc over it when
// one is given, computed where it is asked for.
struct SensorMosaic {
    const Plan& plan;
    const Gradient& scene;
    const Disc* disc;

    uint32_t operator()(uint32_t x, uint32_t y) const {
        const Channel c = SiteChannel(plan.layout, x, y);
        return plan.Recorded(disc && disc->Contains(x, y) ? Disc::kColour[c] : scene.Colour(x, y, c));
    }
};

// The same, read from the background's mosaic rendered beforehand.
struct CachedMosaic {
    const Plan& plan;
    const uint16_t* background;
    const Disc& disc;

    uint32_t operator()(uint32_t x, uint32_t y) const {
        return disc.Contains(x, y) ? plan.Recorded(Disc::kColour[SiteChannel(plan.layout, x, y)])
                                   : background[size_t(y) * plan.width + x];
    }
};

// Converted colour of pixels x0 .. x1 - 1 of row y.
template <class Mosaic>
void DemosaicRow(const Plan& plan, const Mosaic& mosaic, int64_t y, int64_t x0, int64_t x1, uint8_t* out) {
    uint32_t rgb[3];
    uint8_t* pixel = out + (size_t(y) * plan.width + size_t(x0)) * plan.PixelBytes();
    for (int64_t x = x0; x < x1; ++x, pixel += plan.PixelBytes()) {
        Demosaic(plan, mosaic, uint32_t(x), uint32_t(y), rgb);
        plan.PutBgr(pixel, rgb);
    }
}

template <class Mosaic>
void DemosaicBox(const Plan& plan, const Mosaic& mosaic, const Box& box, uint8_t* out) {
    for (int64_t y = box.y0; y < box.y1; ++y) DemosaicRow(plan, mosaic, y, box.x0, box.x1, out);
}

Box WholeFrame(const Plan& plan) { return {0, 0, plan.width, plan.height}; }

// Mono samples or the mosaic of the background, written to out.
void DrawSamples(const Plan& plan, const Gradient& scene, uint8_t* out) {
    const SensorMosaic mosaic{plan, scene, nullptr};
    for (uint32_t y = 0; y < plan.height; ++y)
        for (uint32_t x = 0; x < plan.width; ++x, out += plan.sampleBytes)
            plan.Put(out, plan.output == Output::Mono ? plan.Recorded(scene.Mono(x, y)) : mosaic(x, y));
}

// Draws the disc over mono samples or a mosaic, a row at a time, each row
// copied from a run of the disc's samples for rows of its parity.
void DrawDiscSamples(const Plan& plan, const Disc& disc, uint8_t* out) {
    constexpr int64_t kRun = 128;  // samples, even so that a run keeps the Bayer phase
    uint8_t runs[2][(kRun + 1) * 2];
    for (uint32_t parity = 0; parity < 2; ++parity) {
        for (uint32_t x = 0; x <= kRun; ++x) {
            const uint32_t v = plan.output == Output::Mono ? Disc::kMono
                                                           : Disc::kColour[SiteChannel(plan.layout, x, parity)];
            plan.Put(runs[parity] + x * plan.sampleBytes, plan.Recorded(v));
        }
    }
    const Box box = DiscBox(disc, 0, plan);
    for (int64_t y = box.y0; y < box.y1; ++y) {
        const int64_t half = disc.HalfChord(y - disc.cy);
        const int64_t x1 = std::min<int64_t>(disc.cx + half + 1, plan.width);
        uint8_t* row = out + size_t(y) * plan.width * plan.sampleBytes;
        for (int64_t x = std::max<int64_t>(disc.cx - half, 0); x < x1; x += kRun)
            std::memcpy(row + x * plan.sampleBytes, runs[y & 1] + (x & 1) * plan.sampleBytes,
                        size_t(std::min(kRun, x1 - x)) * plan.sampleBytes);
    }
}

// What every frame of a format starts from, rendered once.
struct Backdrop {
    std::vector<uint8_t> frame;    // the frame without the disc
    std::vector<uint16_t> mosaic;  // converted colour: the recorded mosaic the frame was demosaiced from
};

Backdrop MakeBackdrop(const Plan& plan, const Gradient& scene) {
    Backdrop backdrop;
    backdrop.frame.resize(plan.Bytes());
    if (plan.output != Output::Converted) {
        DrawSamples(plan, scene, backdrop.frame.data());
        return backdrop;
    }
    backdrop.mosaic.resize(size_t(plan.width) * plan.height);
    const SensorMosaic sensor{plan, scene, nullptr};
    for (uint32_t y = 0; y < plan.height; ++y)
        for (uint32_t x = 0; x < plan.width; ++x) backdrop.mosaic[size_t(y) * plan.width + x] = uint16_t(sensor(x, y));
    const uint16_t* mosaic = backdrop.mosaic.data();
    const auto cached = [&](uint32_t x, uint32_t y) { return uint32_t(mosaic[size_t(y) * plan.width + x]); };
    DemosaicBox(plan, cached, WholeFrame(plan), backdrop.frame.data());
    return backdrop;
}

// Converted colour: gathers the mosaic around the disc into a tile, then
// demosaics anew every pixel with a disc pixel among its neighbours: in row
// y, those within one pixel of the widest chord of rows y - 1 .. y + 1.
void DrawDiscConverted(const Plan& plan, const Backdrop& backdrop, const Disc& disc, uint8_t* out) {
    const Box touched = DiscBox(disc, 1, plan);
    const Box tile = DiscBox(disc, 2, plan);  // every neighbour of `touched`, mirrored ones too
    const size_t tileWidth = size_t(tile.x1 - tile.x0);
    std::vector<uint16_t> samples;
    try {
        samples.resize(tileWidth * size_t(tile.y1 - tile.y0));
    } catch (const std::bad_alloc&) {
        DemosaicBox(plan, CachedMosaic{plan, backdrop.mosaic.data(), disc}, touched, out);
        return;
    }
    for (int64_t y = tile.y0; y < tile.y1; ++y) {
        uint16_t* row = samples.data() + size_t(y - tile.y0) * tileWidth;
        std::memcpy(row, backdrop.mosaic.data() + size_t(y) * plan.width + tile.x0, tileWidth * 2);
        const int64_t half = disc.HalfChord(y - disc.cy);
        const int64_t x1 = std::min<int64_t>(disc.cx + half + 1, plan.width);
        for (int64_t x = std::max<int64_t>(disc.cx - half, 0); x < x1; ++x) {
            const Channel c = SiteChannel(plan.layout, uint32_t(x), uint32_t(y));
            row[x - tile.x0] = uint16_t(plan.Recorded(Disc::kColour[c]));
        }
    }
    const auto at = [&](uint32_t x, uint32_t y) {
        return uint32_t(samples[size_t(y - tile.y0) * tileWidth + size_t(x - tile.x0)]);
    };
    for (int64_t y = touched.y0; y < touched.y1; ++y) {
        const int64_t dy = y - disc.cy;
        const int64_t reach = std::max({disc.HalfChord(dy - 1), disc.HalfChord(dy), disc.HalfChord(dy + 1)}) + 1;
        DemosaicRow(plan, at, y, std::max(disc.cx - reach, touched.x0), std::min(disc.cx + reach + 1, touched.x1),
                    out);
    }
}

// The whole frame without a backdrop, when there is no memory to keep one.
void DrawUncached(const Plan& plan, const Gradient& scene, const Disc& disc, uint8_t* out) {
    if (plan.output == Output::Converted) {
        DemosaicBox(plan, SensorMosaic{plan, scene, &disc}, WholeFrame(plan), out);
        return;
    }
    DrawSamples(plan, scene, out);
    DrawDiscSamples(plan, disc, out);
}

void WriteStamp(const FrameId& id, uint8_t* out, size_t frameBytes) {
    uint8_t stamp[kStampBytes];
    std::memcpy(stamp, kMagic, 4);
    const uint32_t number = uint32_t(id.number), absolute = uint32_t(id.absolute);
    for (int i = 0; i < 4; ++i) {
        stamp[4 + i] = uint8_t(number >> (8 * i));
        stamp[8 + i] = uint8_t(absolute >> (8 * i));
    }
    stamp[12] = uint8_t(id.camera);
    stamp[13] = uint8_t(id.camera >> 8);
    stamp[14] = uint8_t(id.head);
    stamp[15] = uint8_t(id.head >> 8);
    std::memcpy(out, stamp, std::min(frameBytes, kStampBytes));
}

// Rendered backdrops, shared by every thread rendering the same format.
class BackdropCache {
public:
    using Shared = std::shared_ptr<const Backdrop>;

    // The backdrop of a format; null only when memory runs out.
    Shared Get(const Plan& plan, uint32_t camera, uint32_t head) {
        const Key key{plan.width, plan.height, plan.bitDepth, plan.sampleBytes, plan.output, plan.layout, camera, head};
        {
            std::lock_guard<std::mutex> hold(mutex_);
            if (auto found = entries_.find(key); found != entries_.end()) {
                found->second.lastUse = ++clock_;
                return found->second.backdrop;
            }
        }
        // Built outside the lock: a large backdrop takes a while, and other formats needn't wait.
        Shared built;
        try {
            built = std::make_shared<const Backdrop>(MakeBackdrop(plan, Gradient(plan, camera, head)));
            std::lock_guard<std::mutex> hold(mutex_);
            auto [entry, added] = entries_.try_emplace(key, Entry{built, 0});
            entry->second.lastUse = ++clock_;
            if (added) {
                held_ += Size(*built);
                Trim(key);
            }
            return entry->second.backdrop;
        } catch (const std::bad_alloc&) {
            return built;
        }
    }

private:
    struct Key {
        uint32_t width, height, bitDepth, sampleBytes;
        Output output;
        ColourLayout layout;
        uint32_t camera, head;
        auto operator<=>(const Key&) const = default;
    };
    struct Entry {
        Shared backdrop;
        uint64_t lastUse;
    };
    static constexpr size_t kMaxHeld = size_t(256) << 20;

    static size_t Size(const Backdrop& b) { return b.frame.size() + 2 * b.mosaic.size(); }

    // Drops the least recently used backdrops beyond the budget, never `keep`.
    void Trim(const Key& keep) {
        while (held_ > kMaxHeld && entries_.size() > 1) {
            auto oldest = entries_.end();
            for (auto it = entries_.begin(); it != entries_.end(); ++it)
                if (!(it->first == keep) && (oldest == entries_.end() || it->second.lastUse < oldest->second.lastUse))
                    oldest = it;
            held_ -= Size(*oldest->second.backdrop);
            entries_.erase(oldest);
        }
    }

    std::mutex mutex_;
    std::map<Key, Entry> entries_;
    uint64_t clock_ = 0;
    size_t held_ = 0;
};

BackdropCache& Cache() {
    static BackdropCache cache;
    return cache;
}

}  // namespace

uint32_t BytesPerPixel(const FrameFormat& format) { return Plan(format).PixelBytes(); }

size_t FrameBytes(const FrameFormat& format) { return Plan(format).Bytes(); }

void RenderFrame(const FrameFormat& format, const FrameId& id, void* out) {
    const Plan plan(format);
    const size_t bytes = plan.Bytes();
    if (bytes == 0) return;
    auto* frame = static_cast<uint8_t*>(out);
    const Disc disc(plan.width, plan.height, id.absolute);
    if (const auto backdrop = Cache().Get(plan, id.camera, id.head)) {
        std::memcpy(frame, backdrop->frame.data(), bytes);
        if (plan.output == Output::Converted)
            DrawDiscConverted(plan, *backdrop, disc, frame);
        else
            DrawDiscSamples(plan, disc, frame);
    } else {
        DrawUncached(plan, Gradient(plan, id.camera, id.head), disc, frame);
    }
    WriteStamp(id, frame, bytes);
}

bool ReadStamp(const void* image, FrameId* id) {
    if (!image) return false;
    const auto* p = static_cast<const uint8_t*>(image);
    if (std::memcmp(p, kMagic, 4) != 0) return false;
    const auto u32 = [p](int at) {
        return uint32_t(p[at]) | uint32_t(p[at + 1]) << 8 | uint32_t(p[at + 2]) << 16 | uint32_t(p[at + 3]) << 24;
    };
    if (id) {
        id->number = int32_t(u32(4));
        id->absolute = u32(8);
        id->camera = uint32_t(p[12]) | uint32_t(p[13]) << 8;
        id->head = uint32_t(p[14]) | uint32_t(p[15]) << 8;
    }
    return true;
}

}  // namespace vcam
