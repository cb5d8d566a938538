// Synthesised frames: sizes, the stamp, determinism, depth scaling, the
// Bayer mosaic of each colour layout and its converted colour.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <thread>
#include <utility>
#include <vector>

#include "camera/image.h"

namespace vcam {
namespace {

constexpr ColourLayout kLayouts[] = {ColourLayout::Mono, ColourLayout::BayerRGGB, ColourLayout::BayerGRBG,
                                     ColourLayout::BayerGBRG, ColourLayout::BayerBGGR};
constexpr ColourLayout kBayerLayouts[] = {ColourLayout::BayerRGGB, ColourLayout::BayerGRBG, ColourLayout::BayerGBRG,
                                          ColourLayout::BayerBGGR};

FrameFormat Format(uint32_t width, uint32_t height, ColourLayout colour, bool raw, uint32_t depth,
                   uint32_t bitDepth = 12) {
    FrameFormat f;
    f.width = width;
    f.height = height;
    f.bitDepth = bitDepth;
    f.colour = colour;
    f.rawMosaic = raw;
    f.depth = depth;
    return f;
}

FrameId Id(int64_t absolute, uint32_t camera = 0, uint32_t head = 1, int32_t number = 0) {
    FrameId id;
    id.camera = camera;
    id.head = head;
    id.absolute = absolute;
    id.number = number;
    return id;
}

std::vector<uint8_t> Render(const FrameFormat& format, const FrameId& id) {
    std::vector<uint8_t> image(FrameBytes(format));
    RenderFrame(format, id, image.data());
    return image;
}

// Sample i of an image of 1- or 2-byte samples.
uint32_t Sample(const std::vector<uint8_t>& image, uint32_t sampleBytes, size_t i) {
    return sampleBytes == 1 ? image[i] : uint32_t(image[2 * i]) | uint32_t(image[2 * i + 1]) << 8;
}

// Where the red and the blue site sit in the 2 x 2 cell: x + 2 * y.
struct SitesOf {
    ColourLayout layout;
    uint32_t red, blue;
};
constexpr SitesOf kSites[] = {{ColourLayout::BayerRGGB, 0, 3},
                              {ColourLayout::BayerGRBG, 1, 2},
                              {ColourLayout::BayerGBRG, 2, 1},
                              {ColourLayout::BayerBGGR, 3, 0}};

TEST(FrameSize, FollowsLayoutAndDepth) {
    struct Case {
        ColourLayout colour;
        bool raw;
        uint32_t depth, bytesPerPixel;
    };
    const Case cases[] = {{ColourLayout::Mono, false, 8, 1},        {ColourLayout::Mono, false, 12, 2},
                          {ColourLayout::Mono, true, 16, 2},        {ColourLayout::BayerRGGB, true, 8, 1},
                          {ColourLayout::BayerGBRG, true, 16, 2},   {ColourLayout::BayerGRBG, false, 8, 3},
                          {ColourLayout::BayerBGGR, false, 10, 6}, {ColourLayout::BayerRGGB, false, 16, 6}};
    for (const Case& c : cases) {
        const FrameFormat f = Format(130, 7, c.colour, c.raw, c.depth);
        EXPECT_EQ(BytesPerPixel(f), c.bytesPerPixel) << int(c.colour) << " raw " << c.raw << " depth " << c.depth;
        EXPECT_EQ(FrameBytes(f), 130u * 7u * c.bytesPerPixel);
    }
    EXPECT_EQ(FrameBytes(Format(0, 7, ColourLayout::Mono, false, 16)), 0u);
}

TEST(FrameStamp, RoundTripsForEveryLayoutAndDepth) {
    const FrameId ids[] = {Id(0, 0, 1, 0), Id(7, 3, 2, -1), Id(123456, 65535, 2, INT32_MIN),
                           Id(5, 1, 65535, INT32_MAX), Id((int64_t(1) << 32) + 9, 2, 1, -400)};
    for (ColourLayout layout : kLayouts) {
        for (bool raw : {false, true}) {
            for (uint32_t depth : {8u, 16u}) {
                const FrameFormat f = Format(128, 32, layout, raw, depth);
                for (const FrameId& id : ids) {
                    const std::vector<uint8_t> image = Render(f, id);
                    FrameId back;
                    ASSERT_TRUE(ReadStamp(image.data(), &back));
                    EXPECT_EQ(back.number, id.number);
                    EXPECT_EQ(back.absolute, int64_t(uint32_t(id.absolute)));  // low 32 bits only
                    EXPECT_EQ(back.camera, id.camera);
                    EXPECT_EQ(back.head, id.head);
                }
            }
        }
    }
    const std::vector<uint8_t> blank(64, 0);
    EXPECT_FALSE(ReadStamp(blank.data(), nullptr));
    EXPECT_FALSE(ReadStamp(nullptr, nullptr));
}

// Pixels at or above 85% of full scale: only the disc reaches that.
std::vector<std::pair<uint32_t, uint32_t>> BrightPixels(const std::vector<uint8_t>& image, const FrameFormat& f) {
    std::vector<std::pair<uint32_t, uint32_t>> bright;
    const uint32_t threshold = ((1u << f.bitDepth) - 1) * 85 / 100;
    for (uint32_t y = 1; y < f.height; ++y)
        for (uint32_t x = 0; x < f.width; ++x)
            if (Sample(image, 2, size_t(y) * f.width + x) >= threshold) bright.emplace_back(x, y);
    return bright;
}

TEST(FrameContent, DependsOnTheIdAlone) {
    const FrameFormat f = Format(256, 128, ColourLayout::Mono, false, 16);
    const std::vector<uint8_t> first = Render(f, Id(41));
    Render(f, Id(42));
    Render(Format(256, 128, ColourLayout::BayerRGGB, false, 16), Id(41));
    EXPECT_EQ(Render(f, Id(41)), first);
    EXPECT_EQ(Render(f, Id(-3)), Render(f, Id(-3)));

    // Another frame, camera or head differs beyond the stamp.
    const auto differsFromFirst = [&](const FrameId& id) {
        const std::vector<uint8_t> other = Render(f, id);
        return !std::equal(first.begin() + 16, first.end(), other.begin() + 16);
    };
    EXPECT_TRUE(differsFromFirst(Id(42)));
    EXPECT_TRUE(differsFromFirst(Id(41, 1)));
    EXPECT_TRUE(differsFromFirst(Id(41, 0, 2)));
}

TEST(FrameContent, DiscMovesEveryFrameAndCoversTheFrame) {
    const FrameFormat f = Format(256, 128, ColourLayout::Mono, false, 16);
    int64_t lastX = -1, lastY = -1, minX = 256, maxX = 0, minY = 128, maxY = 0;
    for (int64_t frame = 0; frame < 120; ++frame) {
        const auto bright = BrightPixels(Render(f, Id(frame)), f);
        ASSERT_GT(bright.size(), 100u) << frame;
        int64_t sx = 0, sy = 0;
        for (auto [x, y] : bright) sx += x, sy += y;
        const int64_t cx = sx / int64_t(bright.size()), cy = sy / int64_t(bright.size());
        EXPECT_TRUE(cx != lastX || cy != lastY) << "disc stood still at frame " << frame;
        lastX = cx, lastY = cy;
        minX = std::min(minX, cx), maxX = std::max(maxX, cx), minY = std::min(minY, cy), maxY = std::max(maxY, cy);
    }
    EXPECT_GT(maxX - minX, 128);
    EXPECT_GT(maxY - minY, 64);
}

TEST(FrameContent, ConcurrentFirstRendersAgree) {
    for (ColourLayout layout : {ColourLayout::Mono, ColourLayout::BayerGBRG}) {
        const FrameFormat f = Format(384, 96, layout, false, 16);  // a size no other test uses
        std::vector<std::vector<uint8_t>> images(4);
        std::vector<std::thread> threads;
        for (auto& image : images) threads.emplace_back([&] { image = Render(f, Id(9)); });
        for (auto& t : threads) t.join();
        for (const auto& image : images) EXPECT_EQ(image, Render(f, Id(9)));
    }
}

TEST(FrameDepth, EightBitsAreTheTopBitsOfTheRecordedValue) {
    for (ColourLayout layout : {ColourLayout::Mono, ColourLayout::BayerGRBG}) {
        for (bool raw : {false, true}) {
            for (uint32_t bitDepth : {8u, 10u, 12u, 16u}) {
                const FrameFormat wide = Format(128, 48, layout, raw, 16, bitDepth);
                const FrameFormat narrow = Format(128, 48, layout, raw, 8, bitDepth);
                const std::vector<uint8_t> a = Render(wide, Id(17)), b = Render(narrow, Id(17));
                ASSERT_EQ(a.size(), 2 * b.size());
                size_t mismatches = 0;
                for (size_t i = 16; i < b.size(); ++i)  // beyond both stamps
                    mismatches += b[i] != Sample(a, 2, i) >> (bitDepth - 8);
                EXPECT_EQ(mismatches, 0u) << int(layout) << " raw " << raw << " bitDepth " << bitDepth;
            }
        }
    }
}

TEST(FrameDepth, SamplesSpanTheBitDepthAndNeverExceedIt) {
    for (ColourLayout layout : {ColourLayout::Mono, ColourLayout::BayerBGGR}) {
        for (bool raw : {false, true}) {
            for (uint32_t bitDepth : {8u, 10u, 12u, 14u, 16u}) {
                const FrameFormat f = Format(128, 48, layout, raw, 16, bitDepth);
                const std::vector<uint8_t> image = Render(f, Id(5));
                uint32_t low = UINT32_MAX, high = 0;
                for (size_t i = 8; i < image.size() / 2; ++i) {
                    low = std::min(low, Sample(image, 2, i));
                    high = std::max(high, Sample(image, 2, i));
                }
                const uint32_t full = (1u << bitDepth) - 1;
                EXPECT_LE(high, full) << int(layout) << " raw " << raw << " bitDepth " << bitDepth;
                EXPECT_GE(high, full * 9 / 10);
                EXPECT_LE(low, full * 3 / 10);
            }
        }
    }
}

// The disc is red: in the mosaic only red sites are bright, only blue sites darker than any background.
TEST(BayerMosaic, RedDiscShowsOnTheLayoutsRedSites) {
    for (const SitesOf& sites : kSites) {
        for (int64_t frame : {0, 33}) {
            const FrameFormat f = Format(256, 128, sites.layout, true, 16);
            const std::vector<uint8_t> image = Render(f, Id(frame));
            size_t bright[4] = {}, dark[4] = {};
            for (uint32_t y = 1; y < f.height; ++y) {
                for (uint32_t x = 0; x < f.width; ++x) {
                    const uint32_t v = Sample(image, 2, size_t(y) * f.width + x);
                    bright[(x & 1) + 2 * (y & 1)] += v >= 4095 * 85 / 100;
                    dark[(x & 1) + 2 * (y & 1)] += v <= 4095 * 15 / 100;
                }
            }
            for (uint32_t site = 0; site < 4; ++site) {
                SCOPED_TRACE(testing::Message() << "layout " << int(sites.layout) << " site " << site);
                EXPECT_EQ(bright[site] > 0, site == sites.red);
                EXPECT_EQ(dark[site] > 0, site == sites.blue);
            }
        }
    }
}

// Converted colour is a bilinear demosaic of the mosaic: each pixel keeps
// its own sample, and each other colour is the mean of that colour's
// samples among its eight neighbours.
TEST(ConvertedColour, IsABilinearDemosaicOfTheMosaic) {
    for (const SitesOf& sites : kSites) {
        for (int64_t frame : {12, 70}) {
            SCOPED_TRACE(testing::Message() << "layout " << int(sites.layout) << " frame " << frame);
            const FrameFormat raw = Format(160, 96, sites.layout, true, 16);
            const FrameFormat converted = Format(160, 96, sites.layout, false, 16);
            const std::vector<uint8_t> mosaic = Render(raw, Id(frame)), colour = Render(converted, Id(frame));
            const auto at = [&](uint32_t x, uint32_t y) { return Sample(mosaic, 2, size_t(y) * raw.width + x); };
            // 0 red, 1 green, 2 blue, from a site's place in the cell.
            const auto channelAt = [&](uint32_t x, uint32_t y) {
                const uint32_t site = (x & 1) + 2 * (y & 1);
                return site == sites.red ? 0 : site == sites.blue ? 2 : 1;
            };
            size_t faults = 0, redPixels = 0;
            for (uint32_t y = 2; y + 1 < raw.height; ++y) {  // rows 0 and 1 border the stamp
                for (uint32_t x = 1; x + 1 < raw.width; ++x) {
                    const size_t pixel = size_t(y) * raw.width + x;
                    const uint32_t rgb[3] = {Sample(colour, 2, 3 * pixel + 2), Sample(colour, 2, 3 * pixel + 1),
                                             Sample(colour, 2, 3 * pixel)};  // stored B, G, R
                    redPixels += rgb[0] >= 4095 * 85 / 100;
                    const int own = channelAt(x, y);
                    faults += rgb[own] != at(x, y);
                    for (int c = 0; c < 3; ++c) {
                        if (c == own) continue;
                        uint32_t sum = 0, count = 0;
                        for (uint32_t ny = y - 1; ny <= y + 1; ++ny)
                            for (uint32_t nx = x - 1; nx <= x + 1; ++nx)
                                if (channelAt(nx, ny) == c) sum += at(nx, ny), ++count;
                        const double mean = double(sum) / count;
                        faults += rgb[c] < mean - 1 || rgb[c] > mean + 1;
                    }
                }
            }
            EXPECT_EQ(faults, 0u);
            EXPECT_GT(redPixels, 50u);  // the disc came through red
        }
    }
}

}  // namespace
}  // namespace vcam
